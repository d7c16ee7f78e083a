"""The screen of this environment, and dragging files over it: the Wayland compositor's if one runs, otherwise the X
server's."""

import os

if "SWAYSOCK" in os.environ:
    from sway import Screen
    from wayland_drag import Drag
else:
    from x11 import Screen
    from x11_drag import Drag

__all__ = ["Drag", "Screen"]
