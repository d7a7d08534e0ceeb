#pragma once

#include "base-ui/BaseUiExport.h"

#include <QtGui/QColor>
#include <QtWidgets/QCheckBox>

#include <memory>

class ScaleWatch;

/// A check box in the client's look. The theme sets its colours by the properties below; without a theme they
/// come from the palette. Its sizes follow the scale.
class TL_BASE_UI_EXPORT TLCheckBox : public QCheckBox
{
    Q_OBJECT
    Q_PROPERTY(QColor boxColor MEMBER m_boxColor)
    Q_PROPERTY(QColor borderColor MEMBER m_borderColor)
    Q_PROPERTY(QColor checkedColor MEMBER m_checkedColor)
    Q_PROPERTY(QColor hoverColor MEMBER m_hoverColor)
    Q_PROPERTY(QColor pressedColor MEMBER m_pressedColor)
    Q_PROPERTY(QColor markColor MEMBER m_markColor)
    Q_PROPERTY(QColor focusColor MEMBER m_focusColor)
    Q_PROPERTY(QColor textColor MEMBER m_textColor)
    Q_PROPERTY(QColor disabledBoxColor MEMBER m_disabledBoxColor)
    Q_PROPERTY(QColor disabledBorderColor MEMBER m_disabledBorderColor)
    Q_PROPERTY(QColor disabledMarkColor MEMBER m_disabledMarkColor)
    Q_PROPERTY(QColor disabledTextColor MEMBER m_disabledTextColor)

public:
    /// 0: the box and its text. 1: a box in a row whose text is another widget: it keeps a gap to that
    /// widget, and takes clicks over the whole height of the row. Takes effect with the next layout.
    int m_sizeClass = 0;

    explicit TLCheckBox(QWidget* parent = nullptr);
    explicit TLCheckBox(const QString& text, QWidget* parent = nullptr);
    ~TLCheckBox() override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool hitButton(const QPoint& point) const override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct Look
    {
        QColor fill;
        QColor border;
        QColor mark;
        QColor text;
    };

    void Construct();
    QRect GetBox() const;
    Look GetLook() const;
    void PaintBox(QPainter* painter, const Look& look) const;

    QColor m_boxColor;
    QColor m_borderColor;
    QColor m_checkedColor;
    QColor m_hoverColor;
    QColor m_pressedColor;
    QColor m_markColor;
    QColor m_focusColor;
    QColor m_textColor;
    QColor m_disabledBoxColor;
    QColor m_disabledBorderColor;
    QColor m_disabledMarkColor;
    QColor m_disabledTextColor;
    std::unique_ptr<ScaleWatch> m_scaleWatch;
};
