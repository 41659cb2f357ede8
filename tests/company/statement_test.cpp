// Which statement texts are accepted, and what is said of the others.
#include "company/embedded/catalog.h"
#include "company/embedded/procedures.h"
#include "company/embedded/select_translator.h"
#include "company/embedded/statement_parser.h"
#include "company_fixture.h"

namespace goods {
namespace {

ExecStatement ParseExec(std::string_view text) { return std::get<ExecStatement>(ParseStatement(text)); }

std::string Show(const Literal& value) {
  if (const auto* number = std::get_if<NumberValue>(&value)) return number->text;
  if (const auto* text = std::get_if<std::string>(&value)) return "'" + *text + "'";
  return "NULL";
}

std::string Show(const ExecStatement& exec) {
  std::string text = exec.procedure;
  for (const Argument& argument : exec.arguments) {
    text += "|" + (argument.name.empty() ? "" : argument.name + "=") + Show(argument.value);
  }
  return text;
}

TEST(ExecText, PositionalAndNamedValuesOfEveryKindAreRead) {
  EXPECT_EQ(Show(ParseExec("Exec Kardex_Proc 12")), "Kardex_Proc|12");
  EXPECT_EQ(Show(ParseExec("Exec RialiStock_SP -1 , -1 , 5")), "RialiStock_SP|-1|-1|5");
  EXPECT_EQ(Show(ParseExec("Exec srKardex_Negative '' , '5' , N'ک''ی'")), "srKardex_Negative|''|'5'|'ک'ی'");
  EXPECT_EQ(Show(ParseExec("exec P @A = 1.50,@B=nUlL , @C ='x'")), "P|@A=1.50|@B=NULL|@C='x'");
}

TEST(ExecText, TheSchemaNameMayStandBeforeTheProcedure) {
  EXPECT_EQ(Show(ParseExec("Exec dbo.DefineRemainInStore 12, 2")), "DefineRemainInStore|12|2");
  EXPECT_EQ(Show(ParseExec("EXEC [dbo].[Kardex_Proc] 1")), "Kardex_Proc|1");
}

TEST(ExecText, LeadingBlanksAndAnEmptyListAreAccepted) {
  EXPECT_EQ(Show(ParseExec(" EXEC AllGoodDetailTransaction ")), "AllGoodDetailTransaction");
  EXPECT_EQ(Show(ParseExec("exec GoodInf_sp ")), "GoodInf_sp");
  EXPECT_EQ(Show(ParseExec("Exec srKardex")), "srKardex");
}

TEST(ExecText, TheAssetReportsStatementIsRead) {
  EXPECT_EQ(
      Show(ParseExec("exec GoodsAsset_Store_SP @CalcBefore =0,@Reverse =0,@StoreCodes "
                     "='-1,0,1,1,1,',@ToDate='9',@FromDate=''")),
      "GoodsAsset_Store_SP|@CalcBefore=0|@Reverse=0|@StoreCodes='-1,0,1,1,1,'|@ToDate='9'|@FromDate=''");
}

std::string SyntaxRefusal(std::string_view text) {
  try {
    ParseStatement(text);
    return "accepted";
  } catch (const StatementError& error) {
    return error.what();
  }
}

struct RefusedText {
  const char* text;
  const char* reason;
  int place;  // of the character
};

class RefusedTexts : public ::testing::TestWithParam<RefusedText> {};

TEST_P(RefusedTexts, AreRefusedWithTheReasonAndThePlace) {
  const RefusedText& refused = GetParam();
  EXPECT_EQ(SyntaxRefusal(refused.text), std::string("دستور پذیرفته نشد: ") + refused.reason + " (نویسه " +
                                             std::to_string(refused.place) + ")");
}

INSTANTIATE_TEST_SUITE_P(
    Statements, RefusedTexts,
    ::testing::Values(
        RefusedText{"", "دستور خالی است", 1}, RefusedText{"   ", "دستور خالی است", 4},
        RefusedText{"delete from Kardex", "دستور باید با EXEC یا SELECT آغاز شود", 1},
        RefusedText{"Exec Kardex_Proc 12; drop table Kardex", "در هر بار تنها یک دستور پذیرفته است", 20},
        RefusedText{"Exec Kardex_Proc 12 drop table Kardex", "پس از پایان دستور چیزی افزوده است: «drop»", 21},
        RefusedText{"Exec Kardex_Proc 12 Exec Kardex_Proc 13", "پس از پایان دستور چیزی افزوده است: «Exec»",
                    21},
        RefusedText{"Exec Kardex_Proc 12 -- more", "توضیح در دستور پذیرفته نیست", 21},
        RefusedText{"Exec Kardex_Proc /* x */ 12", "توضیح در دستور پذیرفته نیست", 18},
        RefusedText{"Exec P 'کالا", "متن بسته نشده است", 8},
        RefusedText{"Exec P 'کالا' x", "پس از پایان دستور چیزی افزوده است: «x»", 15},
        RefusedText{"Exec P 1,", "در این جا عدد، متن یا NULL لازم است", 10},
        RefusedText{"Exec P @A = ,@B = 3", "برای @A مقداری داده نشده است", 13},
        RefusedText{"Exec P @B = 3,@A = ", "برای @A مقداری داده نشده است", 20},
        RefusedText{"Exec P @A 1", "در این جا «=» لازم است", 11},
        RefusedText{"Exec P @ = 1", "پس از @ نام پارامتر نیست", 8},
        RefusedText{"Exec P 12abc", "عدد درست نوشته نشده است", 8},
        RefusedText{"Exec P -'1'", "پس از علامت باید عدد باشد", 9},
        RefusedText{"Exec other.P 1", "نام پیش از نقطه باید dbo باشد", 6},
        RefusedText{"Exec", "در این جا نام روال لازم است", 5},
        RefusedText{"select Code from Kardex union select Code from Stores", "در این جا all لازم است", 31},
        RefusedText{"select Code from Kardex where Kala=1 or", "در این جا عبارت لازم است", 40},
        RefusedText{"select Code from (select Code from Kardex)", "در این جا نام جدول لازم است", 18},
        RefusedText{"select Code into x from Kardex", "پس از پایان دستور چیزی افزوده است: «into»", 13},
        RefusedText{"select top x Code from Kardex", "پس از TOP عدد درست لازم است", 12},
        RefusedText{"select Code from Kardex where Kala=1 & 2", "نویسه ناشناخته", 38},
        RefusedText{"select [Code from Kardex", "نام میان [ ] بسته نشده یا خالی است", 8}));

TEST(StatementText, NestingWithoutEndIsRefusedAndNotFollowed) {
  const std::string deep = "select " + std::string(100'000, '(') + "1";
  EXPECT_NE(SyntaxRefusal(deep).find("تودرتو"), std::string::npos);
  EXPECT_NE(SyntaxRefusal("select " + std::string(100'000, '-') + "1").find("توضیح"), std::string::npos);
  std::string minus = "select ";
  for (int i = 0; i < 100'000; ++i) minus += "- ";
  EXPECT_NE(SyntaxRefusal(minus + "1").find("تودرتو"), std::string::npos);
}

TEST(StatementText, ATextWithAZeroByteIsRefused) {
  using namespace std::string_literals;
  EXPECT_NE(SyntaxRefusal("Exec P 'a\0b'"s).find("نویسه تهی"), std::string::npos);
}

class MeaningTest : public ::testing::Test {
 protected:
  std::string Refused(std::string_view text) { return Refusal(*connection_, text); }
  std::unique_ptr<IConnection> connection_ = OpenCompany(SmallDemoPath())->OpenConnection();
};

TEST_F(MeaningTest, UnknownNamesAreRefusedWhereTheyStand) {
  EXPECT_EQ(Refused("select Code from Users"), "دستور پذیرفته نشد: جدول «Users» شناخته نیست (نویسه 18)");
  EXPECT_EQ(Refused("select * from sqlite_master"),
            "دستور پذیرفته نشد: جدول «sqlite_master» شناخته نیست (نویسه 15)");
  EXPECT_EQ(Refused("select Secret from Kardex"), "دستور پذیرفته نشد: ستون «Secret» شناخته نیست (نویسه 8)");
  EXPECT_EQ(Refused("select load_extension('x') from Kardex"),
            "دستور پذیرفته نشد: تابع «load_extension» شناخته نیست (نویسه 8)");
  EXPECT_EQ(Refused("Exec xp_cmdshell 'dir'"), "دستور پذیرفته نشد: روال «xp_cmdshell» شناخته نیست (نویسه 6)");
  EXPECT_EQ(Refused("select g.Code from GoodInf h"), "دستور پذیرفته نشد: ستون «Code» شناخته نیست (نویسه 8)");
}

TEST_F(MeaningTest, AColumnOfTwoTablesMustSayWhich) {
  EXPECT_NE(Refused("select Code from TagS inner join colors on TagS.color_code = colors.code")
                .find("بیش از یک جدول"),
            std::string::npos);
}

TEST_F(MeaningTest, TypesThatDoNotGoTogetherAreRefused) {
  EXPECT_NE(Refused("select Name + 1 from GoodInf").find("با هم نمی خواند"), std::string::npos);
  EXPECT_NE(Refused("select Name from GoodInf where Code").find("شرط لازم است"), std::string::npos);
  EXPECT_NE(Refused("select Code = 1 , (Code = 1) from GoodInf").find("شرط ستون نمی شود"), std::string::npos);
  EXPECT_NE(Refused("select sum(Name) from GoodInf").find("تنها برای عدد است"), std::string::npos);
  EXPECT_NE(Refused("select Code, sum(Tedad) from Kardex").find("در یک سطر"), std::string::npos);
  EXPECT_NE(Refused("select Code from Kardex where sum(Tedad) > 1").find("در این جا نمی آید"),
            std::string::npos);
  EXPECT_NE(Refused("select 1 union all select 1, 2").find("شمار ستون های UNION"), std::string::npos);
}

TEST_F(MeaningTest, AQuoteInATextStaysInTheText) {
  EXPECT_TRUE(Ask(*connection_, "select Code from GoodInf where Name = 'x'' or 1=1 '").empty());
  const std::vector<std::vector<std::string>> rows =
      Ask(*connection_, "select 'it''s; drop table Kardex --' as [a\"b]");
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0][0], "it's; drop table Kardex --");
}

TEST_F(MeaningTest, AWholeNumberThatOverflowsIsAnErrorAndNeverADouble) {
  EXPECT_NE(Refused("select 9223372036854775807 + 1 as big").find("بیرون از اندازه"), std::string::npos);
  EXPECT_EQ(Refused("select 99999999999999999999 as big"),
            "دستور پذیرفته نشد: عدد بیش از اندازه بزرگ است (نویسه 8)");
  EXPECT_EQ(
      Ask(*connection_,
          "select -9223372036854775808 as least, 0.1 + 0.2 as exact, 7 / 2 as whole, 7 / 2.0 as half")[0],
      (std::vector<std::string>{"-9223372036854775808", "0.3", "3", "3.5"}));
}

TEST_F(MeaningTest, NumberAndTextOfANumberCompareAsNumbers) {
  EXPECT_EQ(Ask(*connection_, "select Code from GoodInf where Code = '12'").size(), 1U);
}

TEST_F(MeaningTest, ParametersAreCheckedByNameNumberAndKind) {
  EXPECT_EQ(Refused("Exec Kardex_Proc"), "دستور پذیرفته نشد: پارامتر «@GoodCode» داده نشده است (نویسه 17)");
  EXPECT_EQ(Refused("Exec Kardex_Proc 1, 2"),
            "دستور پذیرفته نشد: روال Kardex_Proc این همه پارامتر ندارد (نویسه 21)");
  EXPECT_EQ(Refused("Exec Kardex_Proc @Good = 1"),
            "دستور پذیرفته نشد: روال Kardex_Proc پارامتر «@Good» ندارد (نویسه 18)");
  EXPECT_EQ(Refused("Exec Kardex_Proc @goodcode = 1, @GoodCode = 2"),
            "دستور پذیرفته نشد: پارامتر «@GoodCode» دو بار آمده است (نویسه 33)");
  EXPECT_EQ(Refused("Exec Kardex_Proc 'x'"),
            "دستور پذیرفته نشد: پارامتر «@GoodCode» باید عدد درست باشد (نویسه 18)");
  EXPECT_EQ(Refused("Exec Kardex_Proc 1.5"),
            "دستور پذیرفته نشد: پارامتر «@GoodCode» باید عدد درست باشد (نویسه 18)");
  EXPECT_EQ(Refused("Exec Kardex_Proc 99999999999999999999"),
            "دستور پذیرفته نشد: پارامتر «@GoodCode» باید عدد درست باشد (نویسه 18)");
  EXPECT_EQ(Refused("Exec RialiStock_SP @PriceBasis = 1, 2"),
            "دستور پذیرفته نشد: مقدار بی نام پس از پارامتر نامدار نمی آید (نویسه 37)");
}

TEST_F(MeaningTest, EveryProcedureDeclaresWhatItsBodyReturns) {
  EXPECT_GE(Procedures().size(), 4U);
  for (const Procedure& procedure : Procedures()) {
    EXPECT_EQ(procedure.writes, procedure.columns.empty()) << procedure.name;
  }
  EXPECT_THROW(ReadProcedure("Broken", "-- parameter @A number\nSELECT 1"), std::logic_error);
  EXPECT_THROW(ReadProcedure("Broken", "-- column A decimal product B C\nSELECT 1"), std::logic_error);
  EXPECT_THROW(ReadProcedure("Broken", "-- column A decimal sideways\nSELECT 1"), std::logic_error);
  EXPECT_THROW(ReadProcedure("Broken", "-- parameter A integer\nSELECT 1"), std::logic_error);
  EXPECT_THROW(ReadProcedure("Broken", "-- parameter @A integer default x\nSELECT 1"), std::logic_error);
}

}  // namespace
}  // namespace goods
