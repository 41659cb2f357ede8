#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "fake_connection.h"
#include "host/data/query.h"

namespace goods {
namespace {

// The same language by another road: row by row over values, straight from the random tree.
class RandomFilter {
 public:
  explicit RandomFilter(unsigned seed) : random_(seed) {}

  struct Node {
    int kind = 0;  // 0 test, 1 NOT, 2 AND, 3 OR
    std::vector<Node> parts;
    std::string field;
    std::string op;
    Value value;
    std::string like;
  };

  Node Make(int depth) {
    Node node;
    node.kind = depth == 0 ? 0 : Pick(4);
    const int parts = node.kind == 0 ? 0 : node.kind == 1 ? 1 : 2 + Pick(2);
    for (int i = 0; i < parts; ++i) node.parts.push_back(Make(depth - 1));
    if (node.kind == 0) MakeTest(node);
    return node;
  }

  static std::string Text(const Node& node) {
    if (node.kind == 1) return "NOT (" + Text(node.parts[0]) + ")";
    if (node.kind == 0) {
      if (node.op == "LIKE" || node.op == "NOT LIKE")
        return node.field + " " + node.op + " '" + node.like + "'";
      if (node.value.IsNull()) return node.field + " " + node.op + " NULL";
      return node.field + node.op +
             (node.value.IsText() ? "'" + node.value.AsText() + "'" : node.value.AsText());
    }
    std::string text;
    for (const Node& part : node.parts) {
      const std::string inner = part.kind >= 2 ? "(" + Text(part) + ")" : Text(part);
      text += (text.empty() ? "" : node.kind == 2 ? " AND " : " OR ") + inner;
    }
    return text;
  }

  static bool Holds(const Node& node, const test::Row& row) {
    if (node.kind == 1) return !Holds(node.parts[0], row);
    if (node.kind == 2 || node.kind == 3) {
      bool result = node.kind == 2;
      for (const Node& part : node.parts) {
        result = node.kind == 2 ? (Holds(part, row) && result) : (Holds(part, row) || result);
      }
      return result;
    }
    const Value& cell = row[node.field == "I" ? 0 : node.field == "D" ? 1 : 2];
    if (node.op != "LIKE" && node.op != "NOT LIKE" && node.value.IsNull())
      return cell.IsNull() == (node.op == "=");
    if (cell.IsNull()) return false;
    if (node.op == "LIKE") return Like(node.like, cell.AsText());
    if (node.op == "NOT LIKE") return !Like(node.like, cell.AsText());
    const int order = Order(cell, node.value);
    return node.op == "="    ? order == 0
           : node.op == "<>" ? order != 0
           : node.op == "<"  ? order < 0
           : node.op == "<=" ? order <= 0
           : node.op == ">"  ? order > 0
                             : order >= 0;
  }

  Value Cell(int column) {
    if (Pick(6) == 0) return {};
    if (column == 0) return Pick(9) - 4;
    if (column == 1) return Decimal::FromUnits(Int128{Pick(40) - 20} * 250'000'000);
    std::string text;
    for (int i = Pick(4); i > 0; --i) text.push_back(static_cast<char>('a' + Pick(2)));
    return text;
  }

 private:
  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

  void MakeTest(Node& node) {
    static const std::vector<std::string> kOperators = {"=", "<>", "<", "<=", ">", ">="};
    const int column = Pick(3);
    node.field = std::string(1, "IDT"[column]);
    if (column == 2 && Pick(3) == 0) {
      node.op = Pick(2) == 0 ? "LIKE" : "NOT LIKE";
      for (int i = Pick(5); i > 0; --i) node.like.push_back("ab%"[Pick(3)]);
      return;
    }
    node.value = column == 0 && Pick(3) == 0 ? Cell(1) : Cell(column);
    node.op = kOperators[static_cast<std::size_t>(Pick(node.value.IsNull() ? 2 : 6))];
  }

  static int Order(const Value& a, const Value& b) {
    if (a.IsText()) return a.AsText().compare(b.AsText());
    return a.AsDecimal() < b.AsDecimal() ? -1 : a.AsDecimal() == b.AsDecimal() ? 0 : 1;
  }

  static bool Like(std::string_view pattern, std::string_view text) {
    if (pattern.empty()) return text.empty();
    if (pattern.front() == '%') {
      return Like(pattern.substr(1), text) || (!text.empty() && Like(pattern, text.substr(1)));
    }
    return !text.empty() && text.front() == pattern.front() && Like(pattern.substr(1), text.substr(1));
  }

  std::mt19937 random_;
};

TEST(RandomFilters, AgreeWithARowByRowEvaluator) {
  RandomFilter random(42);
  test::FakeConnection connection;
  connection.columns = {{"I", ColumnType::Integer}, {"D", ColumnType::Decimal}, {"T", ColumnType::Text}};
  for (int i = 0; i < 333; ++i) connection.rows.push_back({random.Cell(0), random.Cell(1), random.Cell(2)});
  TADOQuery query(nullptr, "Q", connection);
  query.Open();
  for (int round = 0; round < 2000; ++round) {
    const RandomFilter::Node node = random.Make(round % 4);
    const std::string text = RandomFilter::Text(node);
    query.SetFilter(text);
    std::vector<std::uint32_t> expected;
    for (std::uint32_t i = 0; i < connection.rows.size(); ++i) {
      if (RandomFilter::Holds(node, connection.rows[i])) expected.push_back(i);
    }
    const auto shown = query.VisibleRows();
    ASSERT_EQ(std::vector<std::uint32_t>(shown.begin(), shown.end()), expected) << text;
  }
}

}  // namespace
}  // namespace goods
