#pragma once

#include "base-ui/BaseUiExport.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtGui/QColor>
#include <QtWidgets/QWidget>

#include <memory>

class Fade;

/// Dims a part of a window while a dialog is open over it, and follows it. Made by `TLMask`; may be the
/// parent of the dialog. The theme gives its colour; without one it is the palette's `Shadow`, half clear.
class TL_BASE_UI_EXPORT TLMaskWidget final : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QColor maskColor MEMBER m_maskColor)

public:
    /// A hidden child of `window` that covers `area`, which is the window itself or stands in it.
    TLMaskWidget(QWidget* window, QWidget* area);
    ~TLMaskWidget() override;

    /// Null when it is gone.
    QWidget* GetArea() const noexcept;

    /// Shows it now; it hides when the last of its dialogs is hidden or destroyed.
    void ShowFor(QWidget* dialog);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Open(QObject* dialog);
    void Close(QObject* dialog);
    void Follow();

    QPointer<QWidget> m_area;
    QSet<QObject*> m_dialogs; ///< that are open
    QColor m_maskColor;
    std::unique_ptr<Fade> m_fade;
    QObject m_connections; ///< goes first, so that dialogs that end with the mask find nobody
};
