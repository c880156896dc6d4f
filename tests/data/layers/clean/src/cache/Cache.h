#pragma once
#include "base/Numbers.h"
