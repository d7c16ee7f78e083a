#include "model/Record.h"
