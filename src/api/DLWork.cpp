#include "api/DLWork.h"

Library::Thread::Mutex g_Locker;
