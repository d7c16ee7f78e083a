"""The screen of this environment, and how files are dragged over it: a compositor's for Wayland where one runs, else the
X server's."""

import os

if "SWAYSOCK" in os.environ:
    from sway import Screen
    from wayland_drag import Drag
else:
    from x11 import Screen
    from x11_drag import Drag

__all__ = ["Drag", "Screen"]
