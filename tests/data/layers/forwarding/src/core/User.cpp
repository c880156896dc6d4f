#include "core/misc.h"
