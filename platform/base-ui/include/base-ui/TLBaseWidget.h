#pragma once

#include "base-ui/BaseUiExport.h"

#include <QtWidgets/QWidget>

/// A widget whose background and border the theme may give by the object name or class of any class derived
/// from it, which Qt does for plain widgets only.
class TL_BASE_UI_EXPORT TLBaseWidget : public QWidget
{
    Q_OBJECT

public:
    explicit TLBaseWidget(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~TLBaseWidget() override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
