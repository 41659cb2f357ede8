#include "host/core/component.h"

#include <memory>

#include <gtest/gtest.h>

namespace goods {
namespace {

TEST(Components, AreFoundByNameInAnyLetterCase) {
  TComponent window(nullptr, "Kardex_FRM");
  TComponent store(&window, "Store_SESF");
  TComponent check(&store, "SelectEntity_CHK");
  EXPECT_EQ(window.FindComponent("store_sesf"), &store);
  EXPECT_EQ(window.FindComponent("STORE_SESF.selectentity_chk"), &check);
}

TEST(Components, AreNotFoundUnderAnotherOwnerOrName) {
  TComponent window(nullptr, "Kardex_FRM");
  TComponent store(&window, "Store_SESF");
  const TComponent check(&store, "SelectEntity_CHK");
  EXPECT_EQ(window.FindComponent("SelectEntity_CHK"), nullptr);
  EXPECT_EQ(window.FindComponent("Store_SESF.Nothing"), nullptr);
  EXPECT_EQ(window.FindComponent("Nothing.SelectEntity_CHK"), nullptr);
  EXPECT_EQ(window.FindComponent("Store_SESF."), nullptr);
  EXPECT_EQ(window.FindComponent(""), nullptr);
}

TEST(Components, LeaveTheirOwnerWhenTheyDie) {
  TComponent window(nullptr, "Kardex_FRM");
  auto store = std::make_unique<TComponent>(&window, "Store_SESF");
  EXPECT_EQ(window.Components().size(), 1U);
  store.reset();
  EXPECT_TRUE(window.Components().empty());
}

TEST(Components, OutliveTheirOwner) {
  auto window = std::make_unique<TComponent>(nullptr, "Kardex_FRM");
  const TComponent store(window.get(), "Store_SESF");
  window.reset();
  EXPECT_EQ(store.Owner(), nullptr);
}

TEST(Components, KeepTheOrderOfTheirMaking) {
  TComponent window(nullptr, "W");
  const TComponent b(&window, "B");
  const TComponent a(&window, "A");
  ASSERT_EQ(window.Components().size(), 2U);
  EXPECT_EQ(window.Components()[0], &b);
  EXPECT_EQ(window.Components()[1], &a);
}

}  // namespace
}  // namespace goods
