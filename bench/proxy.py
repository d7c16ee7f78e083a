#!/usr/bin/env python3
"""Measures explanation services beside each other: bench/proxy.py name=command...

Each is started anew for each row, on a port of its own. Clients run on this machine, over TLS, and share its
processors.
"""

import asyncio
import multiprocessing
import os
import re
import resource
import shlex
import signal
import socket
import ssl
import statistics
import subprocess
import sys
import tempfile
import time

LONGEST = 256 * 1024
QUESTION = b'{"contents":[{"parts":[{"text":"Why?"}]}]}'
TLS = ssl.create_default_context()
TLS.check_hostname = False
TLS.verify_mode = ssl.CERT_NONE


def head(length, device=b"A"):
    return (b"POST /explain HTTP/1.1\r\nHost: localhost\r\nContent-Type: application/json\r\nX-Device-UUID: " + device +
            b"\r\nContent-Length: %d\r\n\r\n" % length)


class Service:
    """A service that runs during a "with" block."""

    def __init__(self, command):
        self.command = command

    def __enter__(self):
        self.state = tempfile.TemporaryDirectory()
        self.process = subprocess.Popen([*shlex.split(self.command), "--port", "0", "--per-minute", "0"],
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                        env=os.environ | {"STATE_DIRECTORY": self.state.name})
        self.port = int(self.process.stdout.readline().decode().rsplit(":", 1)[1])
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        self.state.cleanup()

    def status(self, key):
        with open(f"/proc/{self.process.pid}/status", encoding="ascii") as file:
            return int(re.search(rf"^{key}:\s+(\d+)", file.read(), re.MULTILINE).group(1))

    def megabytes(self, key="VmRSS"):
        return self.status(key) / 1024

    def seconds(self):
        with open(f"/proc/{self.process.pid}/stat", encoding="ascii") as file:
            fields = file.read().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


async def connections(port, count):
    """Opens up to count TLS connections: a service may limit those of one address."""
    gate = asyncio.Semaphore(100)

    async def one():
        async with gate:
            try:
                return await asyncio.open_connection("127.0.0.1", port, ssl=TLS, ssl_handshake_timeout=60)
            except OSError:
                return None
    return [each for each in await asyncio.gather(*(one() for _ in range(count))) if each]


async def answer(reader, seconds=90):
    """The status of the reply, or the error instead."""
    try:
        said = await asyncio.wait_for(reader.read(), seconds)
    except (OSError, asyncio.TimeoutError) as failure:
        return type(failure).__name__
    return said.split(b" ")[1].decode() if said else "nothing"


def counted(answers):
    return ", ".join(f"{answers.count(each)} x {each}" for each in sorted(set(answers)))


def cost(command):
    """wrk with 50 connections for 5 seconds"""
    with Service(command) as service:
        said = subprocess.run(["wrk", "--threads", "1", "--connections", "50", "--duration", "5s", "--script",
                               "bench/explain.lua", f"https://127.0.0.1:{service.port}/explain"],
                              capture_output=True, text=True, check=True).stdout
        asked = int(re.search(r"(\d+) requests in", said).group(1))
        return f"{service.seconds() / asked * 1e6:.0f} us of processor time, {asked / 5:.0f} a second"


def rest(command):
    """memory at rest, and with 1,000 idle TLS connections"""
    async def measure(service):
        before = service.megabytes()
        idle = await connections(service.port, 1000)
        await asyncio.sleep(1)
        return (f"{before:.1f} MB, {service.megabytes() - before:+.1f} MB with {len(idle)}, "
                f"{service.status('Threads')} threads")
    with Service(command) as service:
        return asyncio.run(measure(service))


def bodies(command, held=0):
    """2,000 bodies of 256 KB at once"""
    body = QUESTION.replace(b"Why?", b"w" * (LONGEST - len(QUESTION) + 4))

    async def ask(stream):
        reader, writer = stream
        try:
            writer.write(head(LONGEST) + body[:LONGEST - held])
            await asyncio.wait_for(writer.drain(), 60)
            if held:
                await asyncio.sleep(10)
                writer.write(body[LONGEST - held:])
        except (OSError, asyncio.TimeoutError):
            pass
        said = await answer(reader)
        writer.transport.abort()
        return said

    async def measure(service):
        streams = await connections(service.port, 2000)
        answers = await asyncio.gather(*(ask(each) for each in streams))
        return f"{service.megabytes('VmHWM'):.0f} MB at most; {counted(answers)}"
    with Service(command) as service:
        return asyncio.run(measure(service))


def held_bodies(command):
    """the same, the last byte held for 10 s"""
    return bodies(command, 1)


def honest(port, seconds, results):
    """Asks ten times per second."""
    times, answers, end = [], [], time.monotonic() + seconds
    while time.monotonic() < end:
        begin = time.monotonic()
        answers.append(ask_whole(port))
        times.append(time.monotonic() - begin)
        time.sleep(max(0, 0.1 - times[-1]))
    results.put(f"median {statistics.median(times) * 1000:.1f} ms, worst {max(times) * 1000:.0f} ms; {counted(answers)}")


def ask_whole(port):
    try:
        with TLS.wrap_socket(socket.create_connection(("127.0.0.1", port), timeout=60)) as stream:
            stream.sendall(head(len(QUESTION)) + QUESTION)
            said = b""
            while more := stream.recv(65536):
                said += more
    except OSError as failure:
        return type(failure).__name__
    return said.split(b" ")[1].decode() if said else "nothing"


def dripping(command):
    """an honest client beside 500 that drip a byte a second"""
    async def drip(stream):
        reader, writer = stream
        writer.write(head(4000))
        asked = asyncio.create_task(answer(reader))
        while not asked.done():
            writer.write(b"x")
            await asyncio.sleep(1)
        return asked.result()

    async def measure(service):
        streams = await connections(service.port, 500)
        drips = [asyncio.create_task(drip(each)) for each in streams]
        results = multiprocessing.Queue()
        client = multiprocessing.Process(target=honest, args=(service.port, 15, results))
        client.start()
        dripped = await asyncio.gather(*drips)
        client.join()
        return f"{results.get()}; the others: {counted(dripped)}"
    with Service(command) as service:
        return asyncio.run(measure(service))


def stopped(command):
    """SIGTERM under the load of 20 clients, and amid 20 requests"""
    async def ask(port, ended):
        answers = []
        while not ended.is_set():
            try:
                # A client that cannot connect any more does not count as cut off.
                reader, writer = await asyncio.open_connection("127.0.0.1", port)
            except OSError:
                break
            try:
                await writer.start_tls(TLS) if hasattr(writer, "start_tls") else None
                writer.write(head(len(QUESTION)) + QUESTION)
                answers.append(await answer(reader))
            except OSError as failure:
                answers.append(type(failure).__name__)
            writer.transport.abort()
        return answers

    async def half(stream, ended):
        reader, writer = stream
        writer.write(head(len(QUESTION)) + QUESTION[:-1])
        await ended.wait()
        writer.write(QUESTION[-1:])
        said = await answer(reader)
        writer.transport.abort()
        return said

    async def measure(service):
        ended = asyncio.Event()
        halves = [asyncio.create_task(half(each, ended)) for each in await connections(service.port, 20)]
        loads = [asyncio.create_task(ask(service.port, ended)) for _ in range(20)]
        await asyncio.sleep(2)
        service.process.send_signal(signal.SIGTERM)
        await asyncio.sleep(0.3)
        ended.set()
        answers = [each for load in await asyncio.gather(*loads) for each in load]
        answers += await asyncio.gather(*halves)
        return f"{counted(answers)}; it ended with {await asyncio.to_thread(service.process.wait)}"
    with Service(command) as service:
        return asyncio.run(measure(service))


def main():
    resource.setrlimit(resource.RLIMIT_NOFILE, (8192, 8192))
    commands = dict(each.split("=", 1) for each in sys.argv[1:])
    for row in (cost, rest, bodies, held_bodies, dripping, stopped):
        print(f"\n{row.__doc__}")
        for name, command in commands.items():
            print(f"  {name:12} {row(command)}", flush=True)


if __name__ == "__main__":
    main()
