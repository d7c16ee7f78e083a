#include "model/Egg.h"
