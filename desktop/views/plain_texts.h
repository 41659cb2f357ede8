// Texts of a company are shown as they are written, never as markup.
#pragma once

class QApplication;

namespace goods {

// From now on every label and tooltip of the application shows plain text, also one whose maker forgot to say
// so: a title such as "<img src=...>" opens no file. Texts that are meant to be formatted are set in text
// browsers, which this leaves alone.
void ShowPlainTextsOnly(QApplication& application);

}  // namespace goods
