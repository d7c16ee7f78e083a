// The same declarations, from where this system has them.
#include <GL/gl.h>
