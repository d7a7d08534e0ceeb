#pragma once

#include "base-ui/BaseUiExport.h"
#include "base-ui/TextStyle.h"

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtWidgets/QMessageBox>

/// Questions to the user, in the client's look and language.
class TL_BASE_UI_EXPORT PackagedMsgBox final
{
public:
    PackagedMsgBox() = delete;

    /// Asks and waits in an event loop of its own; the client takes no other input meanwhile. The question
    /// stands over `parent`, or without one over the window that the user works in. Shows `text` as it is,
    /// not as HTML. `buttonTexts` are given in the order of the buttons, affirmative ones first; an empty or
    /// missing text means the button's own. Enter answers with the first button. Escape, closing the dialog
    /// and the end of its parent answer with Cancel, or else No, or else the last button. GUI thread.
    static QMessageBox::StandardButton
    question(const QString& text, QWidget* parent = nullptr,
             QMessageBox::StandardButtons buttons = QMessageBox::Yes | QMessageBox::No,
             const QStringList& buttonTexts = {}, TextStyle style = TextStyle::Default);
};
