#pragma once

#include "base-ui/BaseUiExport.h"
#include "base-ui/ButtonType.h"

#include <QtGui/QColor>
#include <QtWidgets/QPushButton>

#include <memory>

class ScaleWatch;

/// A push button in the client's look. The theme sets its colours by the properties below; without a theme
/// they come from the palette. Its sizes follow the scale.
class TL_BASE_UI_EXPORT TLPushButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(int buttonType READ GetButtonType WRITE SetButtonType)
    Q_PROPERTY(QColor fillColor MEMBER m_fillColor)
    Q_PROPERTY(QColor hoverColor MEMBER m_hoverColor)
    Q_PROPERTY(QColor pressedColor MEMBER m_pressedColor)
    Q_PROPERTY(QColor borderColor MEMBER m_borderColor)
    Q_PROPERTY(QColor textColor MEMBER m_textColor)
    Q_PROPERTY(QColor focusColor MEMBER m_focusColor)
    Q_PROPERTY(QColor disabledFillColor MEMBER m_disabledFillColor)
    Q_PROPERTY(QColor disabledBorderColor MEMBER m_disabledBorderColor)
    Q_PROPERTY(QColor disabledTextColor MEMBER m_disabledTextColor)

public:
    /// 0: as wide and tall as its text needs, for a line of a page. 1: at least 80 by 32 [px, unscaled], for
    /// the button row of a dialog. Takes effect with the next layout.
    int m_sizeClass = 0;

    explicit TLPushButton(QWidget* parent = nullptr);
    explicit TLPushButton(const QString& text, QWidget* parent = nullptr);
    ~TLPushButton() override;

    int GetButtonType() const noexcept;
    /// One of `ButtonType`; an unknown number counts as `ButtonType::Default`.
    void SetButtonType(int type);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct Look
    {
        QColor fill;
        QColor border;
        QColor text;
        int borderWidth = 1; ///< [px]
    };

    void Construct();
    Look GetLook() const;
    void PaintLabel(QPainter* painter) const;

    int m_buttonType = ButtonType::Default;
    QColor m_fillColor;
    QColor m_hoverColor;
    QColor m_pressedColor;
    QColor m_borderColor;
    QColor m_textColor;
    QColor m_focusColor;
    QColor m_disabledFillColor;
    QColor m_disabledBorderColor;
    QColor m_disabledTextColor;
    std::unique_ptr<ScaleWatch> m_scaleWatch;
};
