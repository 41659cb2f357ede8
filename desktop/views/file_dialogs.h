// Files and folders that the user names. The dialogs are the toolkit's own: those of a system speak its
// language, and read from left to right.
#pragma once

#include <QString>

class QWidget;

namespace goods {

// All give back the whole path, empty where the user gave up. start is a file, a folder, or empty for the
// folder that was used last, at first that of the user's documents. filter is the toolkit's: "PDF (*.pdf)".
QString AskForFileToOpen(QWidget* parent, const QString& title, const QString& start, const QString& filter);
QString AskForFolder(QWidget* parent, const QString& title, const QString& start);

// start may be a name alone, for the folder that was used last. ending is put behind a name without one.
// A file that is there is asked about, unless the caller does that by itself.
enum class Replacing { Asked, LeftToCaller };
QString AskForFileToSave(QWidget* parent, const QString& title, const QString& start, const QString& filter,
                         const QString& ending, Replacing replacing = Replacing::Asked);

}  // namespace goods
