#include "model/Egg.h"

#include "model/Chicken.h"
