#pragma once
#include "ini/Parser.h"
