// The same declarations, in this system's header.
#include <GL/gl.h>
