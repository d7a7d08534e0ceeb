#pragma once

#include "base-ui/BaseUiExport.h"

#include <QtWidgets/QWidget>

/// A widget that takes its background and border from the theme, by its object name or by any derived class's
/// name. Qt offers that for plain widgets only.
class TL_BASE_UI_EXPORT TLBaseWidget : public QWidget
{
    Q_OBJECT

public:
    explicit TLBaseWidget(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~TLBaseWidget() override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
