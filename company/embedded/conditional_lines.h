// Lines of a procedure's body that stand only in some calls, so that a criterion that is not given costs
// nothing and one that is given can be met through an index:
//
//   ... -- when @Name [or @Other = 3]...                  stands when one of these holds
//   ... -- unless @Name [or ...]                          stands when none holds
//   ... -- when @Name [or ...] unless @Other [or ...]     stands when both do
//
// "@Name" holds when the parameter is not null, "@Name = 3" when it is that whole number. Conditions that
// many lines share have a name: after "-- condition byName @Name or @Other = 3" the lines say "-- when
// byName"; a named one may say "unless" too, and name those before it.
#pragma once

#include <string>
#include <string_view>

#include "company/embedded/procedures.h"

namespace goods {

// Where a body that is divided says which goods; the line is left out of a body for all goods.
inline constexpr std::string_view kGoodsPlace = "{goods}";
inline constexpr char kFirstGood[] = "@FirstGoodOfRange";
inline constexpr char kLastGood[] = "@LastGoodOfRange";

// The body as it is run for the call: for all goods, or for a range of them, whose ends it names kFirstGood
// and kLastGood. Throws std::logic_error when a condition is wrong.
enum class OfGoods { All, Range };
std::string BodyOf(const ProcedureCall& call, OfGoods goods = OfGoods::All);
// Whether the call's work is divided by goods.
bool IsDivided(const ProcedureCall& call);

}  // namespace goods
