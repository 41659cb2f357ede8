// A stock-card window that has not been shown yet builds and runs nothing.
#include "module/reports/stockcard/kardex.h"
#include "tests/module/data_module_fixture.h"

namespace goods {
namespace {

class KardexBeforeShowing : public DataModuleTest {
 protected:
  void SetUp() override {
    host.Lookups().Give(EntityType::Good, 12, {{"Name", "پیچ"}, {"Unit", "عدد"}, {"Unit2", "کارتن"}});
    host.Lookups().Give(EntityType::Store, 2, {{"Name", "انبار"}});
    Give("Exec Kardex_Proc 12", "Date Anbar PerCode Bagh RemainInAnbar",
         {{"1401/01/01", "2", "1", "5", "5"}});
  }
};

TEST_F(KardexBeforeShowing, ChangedCriteriaSendNothing) {
  TKardex_FRM window(host, 1, Variant(std::string("1;12;2;1401/01/01;;")), "");
  window.Good_SEF.SetCode(12);
  window.Store_SESF.SetCode(2);
  window.Date_RDSF.SetRange("1401/01/01", "1401/02/01");
  window.Person_SESF.SelectEntity_CHK.SetChecked(true);
  EXPECT_TRUE(Sent().empty());
}

TEST_F(KardexBeforeShowing, ParametersHandedOverSendNothingAndTheLastOneCounts) {
  TKardex_FRM window(host, 1, Variant(std::string("0;99;;;;")), "");
  window.SetCustomParameter(Variant(std::string("0;98;;;;")), "");
  window.SetCustomParameter(Variant(std::string("0;12;2;;;")), "");
  EXPECT_TRUE(Sent().empty());
  window.ShowModal();
  EXPECT_EQ(Sent(), Texts{"Exec Kardex_Proc 12"});
}

TEST_F(KardexBeforeShowing, CriteriaChangedAfterClosingSendNothing) {
  TKardex_FRM window(host, 1, Variant(std::string("1;12;2;;;")), "");
  window.ShowModal();
  EXPECT_EQ(Sent(), Texts{"Exec Kardex_Proc 12"});
  window.Store_SESF.SetCode(0);
  window.Good_SEF.SetCode(0);
  window.Good_SEF.SetCode(12);
  window.Date_RDSF.SetRange("1401/01/01", "");
  EXPECT_TRUE(Sent().empty());
}

TEST_F(KardexBeforeShowing, EachWindowHasItsOwnRows) {
  TKardex_FRM first(host, 1, Variant(std::string("0;12;;;;")), "");
  TKardex_FRM second(host, 1, Variant(std::string("0;12;;;;")), "");
  EXPECT_NE(first.Kardex_GRD.DataSet(), second.Kardex_GRD.DataSet());
}

}  // namespace
}  // namespace goods
