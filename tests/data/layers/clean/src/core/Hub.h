#pragma once
#include "cache/Cache.h"
#include "base/Numbers.h"
