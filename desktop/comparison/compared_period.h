// TComparedPeriod_FRM: the dialog that asks with which period a report is to be compared.
#pragma once

#include "host/base/base_search.h"
#include "host/base/period_report.h"
#include "host/components/edit.h"

namespace goods {

// The same days of the year before; the last day of a month that is shorter then. Ends that are open, or are
// no dates, stay open.
ReportPeriod YearBefore(const ReportPeriod& period);
// "1403/01/01 تا 1403/12/30"; "همه تاریخ‌ها" where both ends are open.
std::string PeriodText(const ReportPeriod& period);

// Offers the period a year before the report's; F3 accepts two dates that exist, the first not after the
// second, and says what is wrong with others.
class TComparedPeriod_FRM : public TBaseSearch_FRM {
 public:
  TComparedPeriod_FRM(THost& host, const ReportPeriod& own);
  ~TComparedPeriod_FRM() override;

  ReportPeriod Period() const { return {Date1_EDT.Text(), Date2_EDT.Text()}; }

  void FormShow() override;
  void Select_BTNClick() override;
  void Del_BTNClick() override;

  TLabel Own_LBL{this, "Own_LBL"};
  TPanel Period_PNL{this, "Period_PNL", Flow::Row};
  TLabel From_LBL{this, "From_LBL", "مقایسه با، &از تاریخ  :"};
  TDateEdit Date1_EDT{this, "Date1_EDT"};
  TLabel To_LBL{this, "To_LBL", "&تا  :"};
  TDateEdit Date2_EDT{this, "Date2_EDT"};

 private:
  bool MayBeCompared();
};

}  // namespace goods
