// Texts of a company are shown as they are written, never as markup.
#pragma once

class QApplication;

namespace goods {

enum class PlainTextReach {
  Everywhere,
  Reports,  // windows of reports, and what is opened from them
};

// From now on every label and tooltip within reach shows plain text, also one whose maker forgot to say
// so: a title such as "<img src=...>" opens no file. Texts that are meant to be formatted are set in text
// browsers, which this leaves alone.
void ShowPlainTextsOnly(QApplication& application, PlainTextReach reach);

}  // namespace goods
