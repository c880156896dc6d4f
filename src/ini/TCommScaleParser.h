#pragma once
// Forwarding header: what stood here now lives in commission/TCommScaleParser.h. It stays only for code
// written against the old path; new code includes commission/TCommScaleParser.h (the layer check
// refuses a source file that includes this one).
#include "commission/TCommScaleParser.h"
