#pragma once

#include "base-ui/BaseUiExport.h"
#include "base-ui/ComboBusiness.h"

#include <QtWidgets/QComboBox>

#include <memory>

class ScaleWatch;

/// A combo box whose list opens below it, as wide as itself, and scrolls when it is long. Typing selects.
/// The wheel changes it only while it has the focus. Its sizes follow the scale.
class TL_BASE_UI_EXPORT TLComboBox : public QComboBox
{
    Q_OBJECT
    Q_PROPERTY(int business READ GetBusiness WRITE SetBusiness)

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
    std::unique_ptr<ScaleWatch> m_scaleWatch;
};
