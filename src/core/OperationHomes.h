#pragma once
// The homes of the settings operations that remote commands run. An operation
// lives on the hub itself or on the editor of its family: a small class built
// over the hub for one call (`THome(hub)`), that reads and changes the homes
// of its settings through the hub and keeps no state of its own. Each family's
// editor header is included here, so that the generated forwarding of
// TInfoStorage sees them all.
#include "core/TChangeFutClientCodesEditor.h"
#include "core/TClientListsEditor.h"
#include "core/TGlobalListEditor.h"
#include "core/TInstrumentsWithoutCurrencyRiskEditor.h"
#include "core/TLimitKindsEditor.h"
#include "core/TGlobalParameterEditor.h"
#include "core/TStorageHub.h"
#include "core/TMinOrderValueEditor.h"
#include "core/TOwnerParameterEditor.h"
#include "core/TPriceLimitEditor.h"
#include "core/TSecurityListsReader.h"
#include "core/TTemplateClientsEditor.h"
#include "core/TTemplateEditor.h"
#include "core/TUserSettingsEditor.h"

namespace DL {

// The object an operation of `Home` runs on.
template <class Home>
struct TOperationHome {
  static Home Of(TStorageHub& hub) { return Home(hub); }
};
template <>
struct TOperationHome<TStorageHub> {
  static TStorageHub& Of(TStorageHub& hub) { return hub; }
};

}  // namespace DL
