#include "ui/AutoRunOperateWidget.h"

#include "ui/LanguageWatch.h"
#include "ui_AutoRunOperateWidget.h"

#include "base/DpiTool.h"

AutoRunOperateWidget::AutoRunOperateWidget(QWidget* parent)
    : TLBaseWidget(parent), IDpiAdapter(true), m_ui(std::make_unique<Ui::AutoRunOperateWidget>())
{
    m_ui->setupUi(this);
    connect(m_ui->edit_button, &QPushButton::clicked, this, &AutoRunOperateWidget::SigEdit);
    connect(m_ui->delete_button, &QPushButton::clicked, this, &AutoRunOperateWidget::SigDelete);
    new LanguageWatch(this, [this] { m_ui->retranslateUi(this); });
    AutoRunOperateWidget::AdjustForDpi();
}

AutoRunOperateWidget::~AutoRunOperateWidget() = default;

void AutoRunOperateWidget::AdjustForDpi()
{
    m_ui->horizontalLayout->setSpacing(DpiTool::ScaleDefault(10));
}
