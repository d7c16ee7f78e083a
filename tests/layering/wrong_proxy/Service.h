#pragma once

#include "ai/GeminiRecords.h"
#include "ai/Prompt.h"
