#pragma once
#include "core/Hub.h"
