#pragma once
// The whole-file verbs of a client that edits a library as one text: sign on,
// list, fetch with a hold, save. Each reads its request from the message,
// clears it and writes the reply into it. They return what Execute returns:
// 1 for a proper reply, 0 when the reply tells of a refusal or a failed read.
#include <string>

#include "api/DLWork.h"
#include "support/Alert.h"

int UserInit(CAlert& message, int user, unsigned kind, tagDL_work* work, int port, std::string userName);
int GetDLList(CAlert& message, int user, tagDL_work* work);
int GetDLFile(CAlert& message, int user, unsigned kind, tagDL_work* work, int port, std::string userName);
int SaveDLFile(CAlert& message, int user, unsigned kind, tagDL_work* work, int port, std::string userName);
