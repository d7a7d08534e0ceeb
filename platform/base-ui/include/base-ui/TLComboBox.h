#pragma once

#include "base-ui/BaseUiExport.h"
#include "base-ui/ComboBusiness.h"

#include <QtGui/QColor>
#include <QtWidgets/QComboBox>

#include <memory>

class ScaleWatch;

/// A combo box whose list opens below it, as wide as itself, and scrolls when it is long. Typing selects an
/// item. The wheel changes it only while it has the focus. The theme sets its colours by the properties
/// below; without a theme they come from the palette. Its sizes follow the scale.
class TL_BASE_UI_EXPORT TLComboBox : public QComboBox
{
    Q_OBJECT
    Q_PROPERTY(int business READ GetBusiness WRITE SetBusiness)
    Q_PROPERTY(QColor fieldColor MEMBER m_fieldColor)
    Q_PROPERTY(QColor borderColor MEMBER m_borderColor)
    Q_PROPERTY(QColor hoverColor MEMBER m_hoverColor)
    Q_PROPERTY(QColor focusColor MEMBER m_focusColor)
    Q_PROPERTY(QColor disabledFieldColor MEMBER m_disabledFieldColor)
    Q_PROPERTY(QColor disabledBorderColor MEMBER m_disabledBorderColor)
    Q_PROPERTY(QColor textColor MEMBER m_textColor)
    Q_PROPERTY(QColor disabledTextColor MEMBER m_disabledTextColor)
    Q_PROPERTY(QColor rowColor MEMBER m_rowColor)
    Q_PROPERTY(QColor rowTextColor MEMBER m_rowTextColor)

public:
    explicit TLComboBox(QWidget* parent = nullptr);
    ~TLComboBox() override;

    int GetBusiness() const noexcept;
    /// One of `ComboBusiness`; an unknown number counts as `ComboBusiness::Plain`.
    void SetBusiness(int business);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void showPopup() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void AdjustForScale();

    int m_business = ComboBusiness::Plain;
    QColor m_fieldColor;
    QColor m_borderColor;
    QColor m_hoverColor;
    QColor m_focusColor;
    QColor m_disabledFieldColor;
    QColor m_disabledBorderColor;
    QColor m_textColor;
    QColor m_disabledTextColor;
    QColor m_rowColor;     ///< of the chosen row
    QColor m_rowTextColor; ///< of all rows
    std::unique_ptr<ScaleWatch> m_scaleWatch;
};
