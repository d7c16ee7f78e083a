// What this program uses of a header of macOS that the toolchain lacks, by its names in Apple's documentation.
#pragma once

enum vtype { VNON, VREG, VDIR, VBLK, VCHR, VLNK, VSOCK, VFIFO, VBAD, VSTR, VCPLX };
