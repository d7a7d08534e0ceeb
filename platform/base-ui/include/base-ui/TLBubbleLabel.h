#pragma once

#include "base-ui/BaseUiExport.h"
#include "base-ui/BubbleDirection.h"

#include <QtGui/QColor>
#include <QtWidgets/QLabel>

#include <memory>

class Fade;
class QPainterPath;
class ScaleWatch;

/// A message about one control of a form, in a bubble that points to it. Plain text, wrapped where the form
/// ends; screen readers speak it when it appears. It lets the mouse through, and stays until it is hidden.
/// The theme gives its colours; without one they come from the palette's tool tip colours.
class TL_BASE_UI_EXPORT TLBubbleLabel : public QLabel
{
    Q_OBJECT
    Q_PROPERTY(QColor bubbleColor MEMBER m_bubbleColor)
    Q_PROPERTY(QColor borderColor MEMBER m_borderColor)
    Q_PROPERTY(QColor signColor MEMBER m_signColor)
    Q_PROPERTY(QColor textColor MEMBER m_textColor)

public:
    /// A bubble with a `TLBaseDialog` as parent becomes a child of the dialog's content widget, so that
    /// positions in the form hold. Hidden until it is shown.
    explicit TLBubbleLabel(QWidget* parent = nullptr);
    ~TLBubbleLabel() override;

    /// Replaces the text, also while it shows.
    void setText(const QString& text);

    /// `direction` is one of `BubbleDirection`; `pointerOffset` [px, as scaled by the caller] is the distance
    /// from the left edge to the tip of the pointer. A bubble with its pointer up that is moved onto a
    /// control hangs below that control and covers nothing of it; elsewhere the tip is at the top of the
    /// bubble.
    void SetBubbleParam(int direction, int pointerOffset);

protected:
    void changeEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    int GetLead() const;
    QPainterPath GetOutline() const;
    void Adjust();
    void Announce();

    int m_direction = BubbleDirection::Up;
    int m_pointerOffset = 0;
    int m_lead = 0; ///< height at the top that stays clear [px]
    QColor m_bubbleColor;
    QColor m_borderColor;
    QColor m_signColor;
    QColor m_textColor;
    std::unique_ptr<Fade> m_fade;
    std::unique_ptr<ScaleWatch> m_scaleWatch;
};
