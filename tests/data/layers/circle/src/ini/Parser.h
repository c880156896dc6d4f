#pragma once
#include "commission/Scale.h"
