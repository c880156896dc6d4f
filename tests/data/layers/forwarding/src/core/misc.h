#pragma once
// Forwarding header: moved to base/Numbers.h.
#include "base/Numbers.h"
