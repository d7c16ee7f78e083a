#include "scanner/Rule.h"
