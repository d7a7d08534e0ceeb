#pragma once

#include "AutoRunInfoEntityPtr.h"
#include "ui/AutoRunPluginEditWidget.h"

#include "base-ui/TLMask.h"
#include "base-ui/TLMaskWidget.h"
#include "base/DpiTool.h"
#include "frame-core/IBrowserMain.h"

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <type_traits>

/// How the settings page shows the dialogs that fill in an entry. GUI thread.
namespace EntryDialog {

/// Opens a `Dialog` over the dimmed main window, in which the user fills in `entry`. True when the user
/// accepted the dialog: the entry then holds the choice, otherwise it is unchanged. Apps with a key in
/// `excludeKeys` are not offered. Runs an event loop of its own.
template <class Dialog>
[[nodiscard]] bool FillIn(const AutoRunInfoEntityPtr& entry, const QString& title,
                          [[maybe_unused]] const QStringList& excludeKeys = QStringList())
{
    const IBrowserMain* const browser = IBrowserMain::GetBrowser();
    QWidget* const window = browser != nullptr ? browser->GetMainWidget() : nullptr;
    TLMaskWidget* const mask = TLMask::Instance()->InitMask(window, window);

    // Guarded: the window may go away, and its dialogs with it, while the dialog is open.
    const QPointer<Dialog> dialog = new Dialog(mask != nullptr ? mask : window);
    dialog->SetTitleText(title, true);
    dialog->setFixedSize(DpiTool::ScaleDefault(532), DpiTool::ScaleDefault(228));
    if constexpr (std::is_base_of_v<AutoRunPluginEditWidget, Dialog>) {
        dialog->SetExcludeKeys(excludeKeys);
    }
    dialog->SetData(entry);
    if (mask != nullptr) {
        TLMask::Instance()->ShowMask(dialog);
    }
    const bool accepted = dialog->exec() == QDialog::Accepted;
    delete dialog.data();
    return accepted;
}

} // namespace EntryDialog
