#pragma once

#include "base-ui/BaseUiExport.h"

#include <QtCore/QObject>

class QWidget;
class TLMaskWidget;

/// Hands out the masks that dim a window behind a dialog. GUI thread.
class TL_BASE_UI_EXPORT TLMask final : public QObject
{
    Q_OBJECT

public:
    /// The one object of the process.
    static TLMask* Instance();

    /// The mask over `area` in the window of `window`; makes it when there is none yet, and the window owns
    /// it. It stays hidden until `ShowMask`. Null when one of the two is null or `area` is in another window.
    TLMaskWidget* InitMask(QWidget* window, QWidget* area);

    /// Dims what is behind `dialog` until the dialog is hidden or destroyed. The dialog's parent is a mask,
    /// or a widget of a window that has one; does nothing when there is no such mask.
    void ShowMask(QWidget* dialog);

private:
    TLMask() = default;
};
