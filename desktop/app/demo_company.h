// The demo company of this computer's user.
#pragma once

#include <QString>

class QWidget;

namespace goods {

// Users of the demo company, as the sign-in window tells them.
inline constexpr const char* kDemoUsersHint =
    "کاربران شرکت نمایشی، هر یک با گذرواژه‌ای مانند نام خود:\n"
    "admin همه مجوزها،  anbar انباردار بدون دیدن قیمت،  guest بی‌مجوز";

// The folder for the program's data, made where it is missing.
QString DataFolder();

// Makes the demo company in the folder where it is not there yet, telling over parent how far it is, and
// gives back its path. Throws CompanyError; no half-made company is left.
QString EnsureDemoCompany(const QString& folder, QWidget* parent);

}  // namespace goods
