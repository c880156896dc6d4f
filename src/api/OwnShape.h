#pragma once
// ZDL_OWN_SHAPE(name, recipe) declares DL::Adapters::Own::<name>, the recipe
// that the handler of a command with a record of its own runs around
// ZDL_<name> (see api/OwnCommands.h). A family's header of recipes includes
// this one.
#include "api/RecordFields.h"
#include "api/ShapeAdapter.h"

#define ZDL_OWN_SHAPE(name, ...) \
  namespace DL::Adapters::Own {  \
  struct name : __VA_ARGS__ {};  \
  }
