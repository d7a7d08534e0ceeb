#include "ui/AutoRunEditWidget.h"

#include "ui/LanguageWatch.h"
#include "ui_AutoRunEditWidget.h"

#include "base/DpiTool.h"
#include "frame-data/TLUrlUtils.h"

AutoRunEditWidget::AutoRunEditWidget(QWidget* parent)
    : TLBaseDialog(parent, Qt::WindowCloseButtonHint, TitleType::TitleBar, true)
    , m_ui(std::make_unique<Ui::AutoRunEditWidget>())
    , m_error(this)
{
    m_ui->setupUi(GetContentWidget());
    AutoRunEditWidget::ChangeSkin();
    AutoRunEditWidget::AdjustForDpi();
    connect(m_ui->ok_button, &QPushButton::clicked, this, &AutoRunEditWidget::SlotOkBtnClicked);
    connect(m_ui->cancel_button, &QPushButton::clicked, this, &AutoRunEditWidget::SlotCancelBtnClicked);
    connect(m_ui->content_edit, &QLineEdit::textChanged, this, &AutoRunEditWidget::SlotTextChanged);
    new LanguageWatch(this, [this] {
        m_ui->retranslateUi(GetContentWidget());
        ShowTexts();
    });
}

AutoRunEditWidget::~AutoRunEditWidget() = default;

void AutoRunEditWidget::SetData(const AutoRunInfoEntityPtr& entry)
{
    ShowTexts();
    m_entry = entry;
    if (m_entry && !m_entry->url.isEmpty()) {
        m_ui->content_edit->setText(m_entry->url);
    }
}

AutoRunInfoEntityPtr AutoRunEditWidget::GetData() const
{
    return m_entry;
}

bool AutoRunEditWidget::CheckInput()
{
    const QString text = m_ui->content_edit->text();
    if (text.isEmpty()) {
        m_error.Show(m_ui->content_edit, tr("URL cannot be empty"));
        return false;
    }
    if (!TLUrlUtils::IsVXUrl(text)) {
        m_error.Show(m_ui->content_edit, tr("Please enter the VX URL"));
        return false;
    }
    return true;
}

QString AutoRunEditWidget::GetTitleText() const
{
    return tr("Edit Url");
}

QString AutoRunEditWidget::GetPlaceholderText() const
{
    return tr("Please enter VX Url");
}

void AutoRunEditWidget::AdjustForDpi()
{
    const int side = DpiTool::ScaleDefault(40);
    const int bottom = DpiTool::ScaleDefault(30);
    const int spacing = DpiTool::ScaleDefault(10);
    m_ui->btnWidgetLayout->setContentsMargins(0, 0, 0, bottom);
    m_ui->btnWidgetLayout->setSpacing(spacing);
    m_ui->bottom_widget->setFixedHeight(DpiTool::ScaleDefault(66));
    m_ui->contentWidgetLayout->setContentsMargins(side, DpiTool::ScaleDefault(20), side, bottom);
    m_ui->contentWidgetLayout->setSpacing(spacing);
}

void AutoRunEditWidget::ChangeSkin()
{
    m_ui->content_edit->m_sizeClass = 1;
    m_ui->ok_button->SetButtonType(ButtonType::Primary);
    m_ui->ok_button->m_sizeClass = 1;
    m_ui->cancel_button->SetButtonType(ButtonType::Secondary);
    m_ui->cancel_button->m_sizeClass = 1;
}

void AutoRunEditWidget::SlotOkBtnClicked()
{
    if (!m_entry || !CheckInput()) {
        return;
    }
    m_entry->url = m_ui->content_edit->text();
    accept();
}

void AutoRunEditWidget::SlotCancelBtnClicked()
{
    reject();
}

void AutoRunEditWidget::SlotTextChanged(const QString&)
{
    m_error.Hide();
}

void AutoRunEditWidget::ShowTexts()
{
    m_ui->content_label->setText(GetTitleText());
    m_ui->content_edit->setPlaceholderText(GetPlaceholderText());
}
