#pragma once

#include "base-ui/BaseUiExport.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtGui/QColor>
#include <QtWidgets/QWidget>

#include <memory>

class Fade;

/// Dims a part of a window while a dialog is open over it, and follows that part. `TLMask` makes it; it may
/// be the dialog's parent. The theme gives its colour; without one it is the palette's `Shadow`, half
/// transparent.
class TL_BASE_UI_EXPORT TLMaskWidget final : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QColor maskColor MEMBER m_maskColor)

public:
    /// A hidden child of `window` that covers `area`, which is the window itself or a widget in it.
    TLMaskWidget(QWidget* window, QWidget* area);
    ~TLMaskWidget() override;

    /// Null when the area is gone.
    QWidget* GetArea() const noexcept;

    /// Shows the mask now; it hides when the last of its dialogs is hidden or destroyed.
    void ShowFor(QWidget* dialog);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Open(QObject* dialog);
    void Close(QObject* dialog);
    void Follow();

    QPointer<QWidget> m_area;
    QSet<QObject*> m_dialogs; ///< the open ones
    QColor m_maskColor;
    std::unique_ptr<Fade> m_fade;
    QObject m_connections; ///< destroyed first: a dialog that ends with the mask must not call back
};
