// The toolkit's own texts in Persian: file, print and message dialogs, menus of edits and scroll bars.
#pragma once

class QApplication;

namespace goods {

// To be called once. Where the system has the toolkit's Persian catalogue, it answers what is not known here.
void UsePersianTexts(QApplication& application);

}  // namespace goods
