#pragma once
// The recipes of the commands with a record of their own, one per command:
//
//   ZDL_OWN_SHAPE(name, recipe)
//
// declares DL::Adapters::Own::<name>, the recipe that the command's handler
// runs around ZDL_<name>. A recipe is built like an adapter shape (see
// api/ShapeAdapter.h): TSend<Record, Line, In...> or TRead<Record, Out, In...>,
// over the command's own record (declared with ZDL_DECLARE_RECORD, named as
// the row of api/Commands.def names it). The settings operation is the line
// ZDL_OWN_OPERATION of its family in core/SettingsOperations.def.
//
// The recipes of one family stand in a header of their own, included below.
#include "api/OwnShape.h"

#include "api/OwnClientListsCommands.h"
#include "api/OwnChangeFutClientCodesCommands.h"
#include "api/OwnTemplateCommands.h"
#include "api/OwnTemplateClientsCommands.h"
#include "api/OwnMinOrderValueCommands.h"
#include "api/OwnPriceLimitCommands.h"
#include "api/OwnInstrumentsWithoutCurrencyRiskCommands.h"
#include "api/OwnGlobalParameterCommands.h"
#include "api/OwnLimitKindsCommands.h"
