#pragma once

#include "base-ui/BaseUiExport.h"

#include <QtGui/QColor>
#include <QtWidgets/QLineEdit>

#include <memory>

class CloseButton;
class ScaleWatch;

/// A field for one line of text, with a button that clears it. The theme sets the colours of its frame;
/// without one they come from the palette. Its sizes follow the scale.
class TL_BASE_UI_EXPORT TLLineEdit : public QLineEdit
{
    Q_OBJECT
    Q_PROPERTY(QColor fieldColor MEMBER m_fieldColor)
    Q_PROPERTY(QColor borderColor MEMBER m_borderColor)
    Q_PROPERTY(QColor hoverColor MEMBER m_hoverColor)
    Q_PROPERTY(QColor focusColor MEMBER m_focusColor)
    Q_PROPERTY(QColor disabledFieldColor MEMBER m_disabledFieldColor)
    Q_PROPERTY(QColor disabledBorderColor MEMBER m_disabledBorderColor)

public:
    /// 0: as tall as its text needs, at least 28 [px, unscaled], for a line of a page. 1: at least 32 [px,
    /// unscaled], for a form. Takes effect with the next layout.
    int m_sizeClass = 0;

    explicit TLLineEdit(QWidget* parent = nullptr);
    explicit TLLineEdit(const QString& text, QWidget* parent = nullptr);
    ~TLLineEdit() override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void Construct();
    void Retranslate();
    void PlaceClearButton();

    QColor m_fieldColor;
    QColor m_borderColor;
    QColor m_hoverColor;
    QColor m_focusColor;
    QColor m_disabledFieldColor;
    QColor m_disabledBorderColor;
    CloseButton* m_clearButton = nullptr;
    std::unique_ptr<ScaleWatch> m_scaleWatch;
};
