#pragma once
// Records and recipes of the template commands with a record of their own.
#include <string>
#include <vector>

#include "api/RecordFields.h"
#include "api/OwnShape.h"

// The codes of the templates of one kind: "firmCode" in, "lsStrings" out.
ZDL_DECLARE_RECORD(TDL_GetListOfClientTemplates, (std::string, firmCode), (std::vector<std::string>, lsStrings));
ZDL_DECLARE_RECORD(TDL_GetListOfMarginTemplates, (std::string, firmCode), (std::vector<std::string>, lsStrings));
ZDL_DECLARE_RECORD(TDL_GetListOfBaseAssetsTemplates, (std::string, firmCode), (std::vector<std::string>, lsStrings));

ZDL_OWN_SHAPE(GetListOfClientTemplates,
              Shape::TRead<TDL_GetListOfClientTemplates, Shape::OutStrings<&TDL_GetListOfClientTemplates::lsStrings>,
                           Shape::Str<&TDL_GetListOfClientTemplates::firmCode>>)
ZDL_OWN_SHAPE(GetListOfMarginTemplates,
              Shape::TRead<TDL_GetListOfMarginTemplates, Shape::OutStrings<&TDL_GetListOfMarginTemplates::lsStrings>,
                           Shape::Str<&TDL_GetListOfMarginTemplates::firmCode>>)
ZDL_OWN_SHAPE(GetListOfBaseAssetsTemplates,
              Shape::TRead<TDL_GetListOfBaseAssetsTemplates,
                           Shape::OutStrings<&TDL_GetListOfBaseAssetsTemplates::lsStrings>,
                           Shape::Str<&TDL_GetListOfBaseAssetsTemplates::firmCode>>)

// A new template: "firmCode", "templateCode"; the change line names the code.
ZDL_DECLARE_RECORD(TDL_AddClientTemplate, (std::string, firmCode), (std::string, templateCode));
ZDL_DECLARE_RECORD(TDL_AddMarginTemplate, (std::string, firmCode), (std::string, templateCode));
ZDL_DECLARE_RECORD(TDL_AddBaseAssetsTemplate, (std::string, firmCode), (std::string, templateCode));

ZDL_OWN_SHAPE(AddClientTemplate,
              Shape::TSend<TDL_AddClientTemplate, Shape::LineArguments, Shape::Str<&TDL_AddClientTemplate::firmCode>,
                           Shape::Str<&TDL_AddClientTemplate::templateCode>>)
ZDL_OWN_SHAPE(AddMarginTemplate,
              Shape::TSend<TDL_AddMarginTemplate, Shape::LineArguments, Shape::Str<&TDL_AddMarginTemplate::firmCode>,
                           Shape::Str<&TDL_AddMarginTemplate::templateCode>>)
ZDL_OWN_SHAPE(AddBaseAssetsTemplate,
              Shape::TSend<TDL_AddBaseAssetsTemplate, Shape::LineArguments,
                           Shape::Str<&TDL_AddBaseAssetsTemplate::firmCode>,
                           Shape::Str<&TDL_AddBaseAssetsTemplate::templateCode>>)

// The clients with a section of their own: "firmCode" in, "lsStrings" out.
ZDL_DECLARE_RECORD(TDL_GetListOfClientSettings, (std::string, firmCode), (std::vector<std::string>, lsStrings));

ZDL_OWN_SHAPE(GetListOfClientSettings,
              Shape::TRead<TDL_GetListOfClientSettings, Shape::OutStrings<&TDL_GetListOfClientSettings::lsStrings>,
                           Shape::Str<&TDL_GetListOfClientSettings::firmCode>>)

// Restriction templates: the list of codes and a new one, with the records of
// the other kinds.
ZDL_DECLARE_RECORD(TDL_GetListOfRestrictionTemplates, (std::string, firmCode), (std::vector<std::string>, lsStrings));
ZDL_DECLARE_RECORD(TDL_AddRestrictionTemplate, (std::string, firmCode), (std::string, templateCode));

ZDL_OWN_SHAPE(GetListOfRestrictionTemplates,
              Shape::TRead<TDL_GetListOfRestrictionTemplates,
                           Shape::OutStrings<&TDL_GetListOfRestrictionTemplates::lsStrings>,
                           Shape::Str<&TDL_GetListOfRestrictionTemplates::firmCode>>)
ZDL_OWN_SHAPE(AddRestrictionTemplate,
              Shape::TSend<TDL_AddRestrictionTemplate, Shape::LineArguments,
                           Shape::Str<&TDL_AddRestrictionTemplate::firmCode>,
                           Shape::Str<&TDL_AddRestrictionTemplate::templateCode>>)
