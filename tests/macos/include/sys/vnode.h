// The part of a macOS header that this program uses and the toolchain lacks, with the names of Apple's documentation.
#pragma once

enum vtype { VNON, VREG, VDIR, VBLK, VCHR, VLNK, VSOCK, VFIFO, VBAD, VSTR, VCPLX };
