#pragma once

// The whole public face of the shell's views: what they show of the state, computed here, and the module Tidlo.Shell,
// which only lays it out.

#include "ui/shell/ShownState.h"
