#pragma once
// Forwarding header: what stood here now lives in base/Numbers.h. It stays only for code
// written against the old path; new code includes base/Numbers.h (the layer check
// refuses a source file that includes this one).
#include "base/Numbers.h"
