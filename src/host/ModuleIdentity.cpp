#include "host/ModuleIdentity.h"

std::string g_strVersion;
