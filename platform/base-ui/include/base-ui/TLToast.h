#pragma once

#include "base-ui/BaseUiExport.h"
#include "base-ui/ToastType.h"

#include <QtGui/QColor>
#include <QtWidgets/QLabel>

#include <memory>

class Fade;
class QTimer;
class ScaleWatch;

/// A short message at the top of the window that the user works in; it disappears by itself. It takes neither
/// the focus nor clicks; screen readers speak it. The theme sets its colours by type; without one they come
/// from the palette's tool tip colours.
class TL_BASE_UI_EXPORT TLToast final : public QLabel
{
    Q_OBJECT
    Q_PROPERTY(int toastType READ GetToastType)
    Q_PROPERTY(QColor toastColor MEMBER m_toastColor)
    Q_PROPERTY(QColor borderColor MEMBER m_borderColor)
    Q_PROPERTY(QColor signColor MEMBER m_signColor)
    Q_PROPERTY(QColor textColor MEMBER m_textColor)

public:
    ~TLToast() override;

    /// Shows `text`, which is plain text, for `duration` [ms], in place of the window's last toast. `type` is
    /// one of `ToastType`; an unknown number counts as `ToastType::Information`. Does nothing for an empty
    /// text or while the client shows no window. GUI thread.
    static void Show(const QString& text, int type, int duration = 3000);

    int GetToastType() const noexcept;

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    explicit TLToast(QWidget* window);

    void Say(const QString& text, int type, int duration);
    void Adjust();
    void Leave();

    int m_type = ToastType::Information;
    QColor m_toastColor;
    QColor m_borderColor;
    QColor m_signColor;
    QColor m_textColor;
    QTimer* m_timer;
    std::unique_ptr<Fade> m_fade;
    std::unique_ptr<ScaleWatch> m_scaleWatch;
};
