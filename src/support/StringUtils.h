#pragma once
// Forwarding header: what stood here now lives in base/TextHelpers.h. It stays only for code
// written against the old path; new code includes base/TextHelpers.h (the layer check
// refuses a source file that includes this one).
#include "base/TextHelpers.h"
