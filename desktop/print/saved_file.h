// What the user is offered of a file that has been written.
#pragma once

#include <QString>

class QWidget;

namespace goods {

// Says that the file at path is written, with the note where there is one, and offers to open it or its
// folder with what the system has for them. Returns when the user is done.
void TellSaved(QWidget* parent, const QString& path, const QString& note = {});

}  // namespace goods
