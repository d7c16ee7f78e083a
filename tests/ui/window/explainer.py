"""An AI proxy that gives prepared replies, over TLS, with a certificate of its own."""

import json
import ssl
import subprocess
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from pathlib import Path


def answer(text):
    """A reply with an explanation."""
    return 200, {"candidates": [{"content": {"parts": [{"text": text}]}}]}


def refusal(status, message):
    return status, {"error": "refused", "message": message}


NOTHING = 200, {"candidates": []}


class Explainer:
    """Listens from the start, on a port that was free. Set the reply before a request comes."""

    def __init__(self, folder):
        self.reply = NOTHING
        self.may_reply = threading.Event()
        self.may_reply.set()
        self.requests = []
        self.asked = threading.Event()
        self.certificate = Path(folder, "certificate.pem")
        key = Path(folder, "key.pem")
        subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                        "-days", "2", "-subj", "/CN=localhost", "-addext", "subjectAltName=DNS:localhost",
                        "-keyout", key, "-out", self.certificate], check=True, capture_output=True)
        tls = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        tls.load_cert_chain(self.certificate, key)
        self.server = ThreadingHTTPServer(("localhost", 0), self._handler())
        self.server.socket = tls.wrap_socket(self.server.socket, server_side=True)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    @property
    def host(self):
        return f"localhost:{self.server.server_port}"

    def _handler(explainer):  # noqa: N805
        class Handler(BaseHTTPRequestHandler):
            def do_POST(self):
                body = self.rfile.read(int(self.headers["Content-Length"]))
                explainer.requests.append((self.path, json.loads(body)))
                explainer.asked.set()
                explainer.may_reply.wait()
                status, record = explainer.reply
                reply = json.dumps(record).encode()
                self.send_response(status)
                self.send_header("Content-Type", "application/json")
                self.send_header("Content-Length", str(len(reply)))
                self.end_headers()
                self.wfile.write(reply)

            def log_message(self, *_):
                pass

        return Handler
