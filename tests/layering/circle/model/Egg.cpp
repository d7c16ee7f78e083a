#include "model/Chicken.h"
#include "model/Egg.h"
