#pragma once
// Records and recipes of the commands on template client lists and of the
// template removals (see api/OwnCommands.h).
//
// Their change lines quote every text: the command, "main", the template
// codes, then the clients as a count followed by each client, every column
// closed by a comma:
//   AddClientToClientTemplate,"main","T1",1,"C1",
//   SetClientsListOfClientTemplate,"main","T1",2,"C1","C2",
//   RemoveClientTemplate,"main","T1",
#include <string>
#include <vector>

#include "api/OwnShape.h"

namespace DL::Adapters::TemplateClientsRecipes {
using namespace Shape;

// One client, written in a change line as a list of one.
template <auto Member>
struct Client : Str<Member> {
  template <class R>
  static std::string Text(const R& r) {
    return "1," + Quoted(r.*Member);
  }
};

// A list of clients, written as its count and each client quoted.
template <auto Member>
struct Clients : Strings<Member> {
  template <class R>
  static std::string Text(const R& r) {
    std::string text = std::to_string((r.*Member).size());
    for (const std::string& client : r.*Member) text += "," + Quoted(client);
    return text;
  }
};

// The change line: the command, "main" quoted, then each argument after the
// firm code, each followed by a comma.
struct QuotedLine {
  template <class R, class First, class... Rest>
  static std::string Make(std::string_view command, const R& r) {
    std::string line(command);
    line += ",\"main\",";
    ((line += Rest::Text(r), line += ','), ...);
    return line;
  }
};

// The recipes of one kind of template.
template <class Add, class Remove, class Set, class Move, class Drop>
struct TKind {
  using AddRecipe = TSend<Add, QuotedLine, Str<&Add::firmCode>, Str<&Add::templateCode>, Client<&Add::clientCode>>;
  using RemoveRecipe =
      TSend<Remove, QuotedLine, Str<&Remove::firmCode>, Str<&Remove::templateCode>, Client<&Remove::clientCode>>;
  using SetRecipe = TSend<Set, QuotedLine, Str<&Set::firmCode>, Str<&Set::templateCode>, Clients<&Set::lsClients>>;
  using MoveRecipe = TSend<Move, QuotedLine, Str<&Move::firmCode>, Str<&Move::fromTemplateCode>,
                           Str<&Move::toTemplateCode>, Client<&Move::clientCode>>;
  using DropRecipe = TSend<Drop, QuotedLine, Str<&Drop::firmCode>, Str<&Drop::templateCode>>;
};
}  // namespace DL::Adapters::TemplateClientsRecipes

// The records of one kind: "firmCode", "templateCode" (or "fromTemplateCode"
// and "toTemplateCode"), and "clientCode" or "lsClients".
#define ZDL_TEMPLATE_CLIENT_RECIPES_(Kind, Kinds)                                                                   \
  ZDL_DECLARE_RECORD(TDL_AddClientTo##Kind##Template, (std::string, firmCode), (std::string, templateCode),          \
                     (std::string, clientCode));                                                                     \
  ZDL_DECLARE_RECORD(TDL_RemoveClientFrom##Kind##Template, (std::string, firmCode), (std::string, templateCode),     \
                     (std::string, clientCode));                                                                     \
  ZDL_DECLARE_RECORD(TDL_SetClientsListOf##Kind##Template, (std::string, firmCode), (std::string, templateCode),     \
                     (std::vector<std::string>, lsClients));                                                         \
  ZDL_DECLARE_RECORD(TDL_MoveClientBetween##Kinds, (std::string, firmCode), (std::string, fromTemplateCode),         \
                     (std::string, toTemplateCode), (std::string, clientCode));                                      \
  ZDL_DECLARE_RECORD(TDL_Remove##Kind##Template, (std::string, firmCode), (std::string, templateCode));              \
  namespace DL::Adapters::TemplateClientsRecipes {                                                                   \
  using Kind##Kind = TKind<TDL_AddClientTo##Kind##Template, TDL_RemoveClientFrom##Kind##Template,                    \
                           TDL_SetClientsListOf##Kind##Template, TDL_MoveClientBetween##Kinds,                       \
                           TDL_Remove##Kind##Template>;                                                              \
  }                                                                                                                  \
  ZDL_OWN_SHAPE(AddClientTo##Kind##Template, TemplateClientsRecipes::Kind##Kind::AddRecipe)                         \
  ZDL_OWN_SHAPE(RemoveClientFrom##Kind##Template, TemplateClientsRecipes::Kind##Kind::RemoveRecipe)                 \
  ZDL_OWN_SHAPE(SetClientsListOf##Kind##Template, TemplateClientsRecipes::Kind##Kind::SetRecipe)                    \
  ZDL_OWN_SHAPE(MoveClientBetween##Kinds, TemplateClientsRecipes::Kind##Kind::MoveRecipe)                           \
  ZDL_OWN_SHAPE(Remove##Kind##Template, TemplateClientsRecipes::Kind##Kind::DropRecipe)

ZDL_TEMPLATE_CLIENT_RECIPES_(Client, ClientTemplates)
ZDL_TEMPLATE_CLIENT_RECIPES_(Margin, MarginTemplates)
ZDL_TEMPLATE_CLIENT_RECIPES_(Restriction, RestrictionTemplates)
ZDL_TEMPLATE_CLIENT_RECIPES_(BaseAssets, BaseAssetsTemplates)

#undef ZDL_TEMPLATE_CLIENT_RECIPES_
