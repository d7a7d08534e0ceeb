// Shows the platform's own widgets in the client's theme, to look at them. Not a test and not installed.
//
//   BaseUiPreview [--theme light|dark] [--language en|zh_CN] [--scale 200] [--later 100]
//                 [--show sheet|url|app|question]
//
// "sheet" shows all widgets in one window, the others one dialog over it. The scale [%] is that of the start
// and, two seconds later, that of "later".

#include "base-ui/PackagedMsgBox.h"
#include "base-ui/RequestStatusBaseWidget.h"
#include "base-ui/TLBaseDialog.h"
#include "base-ui/TLBubbleLabel.h"
#include "base-ui/TLCheckBox.h"
#include "base-ui/TLComboBox.h"
#include "base-ui/TLLineEdit.h"
#include "base-ui/TLMask.h"
#include "base-ui/TLMaskWidget.h"
#include "base-ui/TLPushButton.h"
#include "base-ui/TLToast.h"
#include "base-ui/UIUtils.h"

#include "base/DpiTool.h"

#include "look/LanguageManager.h"
#include "look/ThemeManager.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QTimer>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>

#include <memory>

namespace {

int Scaled(int pixels)
{
    return DpiTool::ScaleDefault(pixels);
}

QIcon MakeIcon(int hue)
{
    QPixmap picture(64, 64);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromHsv(hue, 120, 190));
    painter.drawRoundedRect(4, 4, 56, 56, 16, 16);
    return picture;
}

void FillApps(TLComboBox* combo)
{
    combo->SetBusiness(ComboBusiness::Apps);
    combo->setIconSize(QSize(Scaled(16), Scaled(16)));
    combo->addItem(QIcon(), QStringLiteral("Please select app"));
    const QStringList names = {QStringLiteral("Orders"),
                               QStringLiteral("Stock"),
                               QStringLiteral("Customer service"),
                               QStringLiteral("Marketing campaigns of the coming season, with all their "
                                              "coupons and the reports of last year"),
                               QStringLiteral("客服工作台"),
                               QStringLiteral("Returns and refunds"),
                               QStringLiteral("Invoices"),
                               QStringLiteral("Reports"),
                               QStringLiteral("Print station"),
                               QStringLiteral("Warehouse")};
    for (int i = 0; i < names.size(); ++i) {
        combo->addItem(MakeIcon(i * 35), names.at(i));
    }
}

void AddButtons(QGridLayout* grid, int row, int type, const QString& name)
{
    for (int column = 0; column < 3; ++column) {
        auto* button = new TLPushButton(name);
        button->SetButtonType(type);
        button->m_sizeClass = column == 1 ? 0 : 1;
        button->setDisabled(column == 2);
        grid->addWidget(button, row, column);
    }
}

QWidget* MakeSheet()
{
    auto* sheet = new TLBaseWidget;
    sheet->setWindowTitle(QStringLiteral("Widgets"));
    auto* layout = new QVBoxLayout(sheet);
    layout->setContentsMargins(Scaled(24), Scaled(24), Scaled(24), Scaled(24));
    layout->setSpacing(Scaled(16));

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Scaled(12));
    AddButtons(grid, 0, ButtonType::Primary, QStringLiteral("Primary"));
    AddButtons(grid, 1, ButtonType::Secondary, QStringLiteral("Secondary"));
    AddButtons(grid, 2, ButtonType::Plain, QStringLiteral("Plain"));
    grid->setColumnStretch(3, 1);
    layout->addLayout(grid);

    auto* boxes = new QHBoxLayout;
    for (int i = 0; i < 5; ++i) {
        auto* box = new TLCheckBox(QStringLiteral("Open this at the start"));
        box->setTristate(i == 2);
        box->setCheckState(i == 2 ? Qt::PartiallyChecked : i % 2 == 1 ? Qt::Checked : Qt::Unchecked);
        box->setDisabled(i > 2);
        if (i > 0) {
            box->setText(QStringLiteral("State %1").arg(i));
        }
        boxes->addWidget(box);
    }
    layout->addLayout(boxes);

    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    auto* rowBox = new TLCheckBox;
    rowBox->m_sizeClass = 1;
    rowBox->setChecked(true);
    row->addWidget(rowBox);
    auto* found = new QLabel(QStringLiteral("https://shop.example/orders?a=1&b=<2>  Shop"));
    UIUtils::HighlightLabel(found, QStringLiteral("shop"));
    row->addWidget(found, 1);
    layout->addLayout(row);

    auto* elided = new QLabel;
    UIUtils::SetElidedText(
        elided, QStringLiteral("https://shop.example/a/very/long/address/that/does/not/fit/at/all"),
        Scaled(300));
    layout->addWidget(elided);

    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(Scaled(12));
    auto* empty = new TLLineEdit;
    empty->setPlaceholderText(QStringLiteral("Please enter VX Url"));
    auto* filled = new TLLineEdit(QStringLiteral("https://shop.example/orders"));
    filled->m_sizeClass = 1;
    auto* disabled = new TLLineEdit(QStringLiteral("https://shop.example/"));
    disabled->setDisabled(true);
    auto* combo = new TLComboBox;
    FillApps(combo);
    combo->setCurrentIndex(4);
    auto* disabledCombo = new TLComboBox;
    FillApps(disabledCombo);
    disabledCombo->setDisabled(true);
    fields->addWidget(empty, 0, 0);
    fields->addWidget(filled, 0, 1);
    fields->addWidget(disabled, 1, 0);
    fields->addWidget(combo, 1, 1);
    fields->addWidget(disabledCombo, 2, 0);
    layout->addLayout(fields);

    auto* states = new QHBoxLayout;
    for (int status : {RequestStatus::Loading, RequestStatus::Failed}) {
        auto* area = new RequestStatusBaseWidget;
        area->AddSucceedWidget(new QLabel(QStringLiteral("Content")));
        area->SetStatus(status);
        states->addWidget(area);
    }
    layout->addLayout(states);
    layout->addStretch();
    sheet->resize(Scaled(680), Scaled(620));
    filled->setFocus();
    return sheet;
}

void SetScale(int percent, ThemeManager* themes)
{
    DpiTool::SetScale(percent / 100.0);
    QFont font = QApplication::font();
    font.setPixelSize(Scaled(13));
    QApplication::setFont(font);
    // Widgets that a style sheet has touched take the new font from it only.
    themes->Apply(themes->GetTheme());
}

/// A dialog over the dimmed window, with the measures that forms of modules have.
TLBaseDialog* MakeForm(QWidget* window, const QString& title, QWidget* field)
{
    TLMaskWidget* const mask = TLMask::Instance()->InitMask(window, window);
    auto* dialog = new TLBaseDialog(mask, Qt::WindowCloseButtonHint, TitleType::TitleBar, true);
    dialog->SetTitleText(title, true);
    dialog->setFixedSize(Scaled(532), Scaled(228));
    auto* layout = new QVBoxLayout(dialog->GetContentWidget());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* content = new QWidget;
    auto* contentLayout = new QHBoxLayout(content);
    contentLayout->setContentsMargins(Scaled(40), Scaled(20), Scaled(40), Scaled(30));
    contentLayout->setSpacing(Scaled(10));
    contentLayout->addWidget(new QLabel(title));
    contentLayout->addWidget(field);
    layout->addWidget(content);
    auto* bottom = new QWidget;
    bottom->setFixedHeight(Scaled(66));
    auto* bottomLayout = new QHBoxLayout(bottom);
    bottomLayout->setContentsMargins(0, 0, 0, Scaled(30));
    bottomLayout->setSpacing(Scaled(10));
    bottomLayout->addStretch();
    auto* ok = new TLPushButton(QStringLiteral("OK"));
    ok->SetButtonType(ButtonType::Primary);
    ok->m_sizeClass = 1;
    auto* cancel = new TLPushButton(QStringLiteral("Cancel"));
    cancel->SetButtonType(ButtonType::Secondary);
    cancel->m_sizeClass = 1;
    bottomLayout->addWidget(ok);
    bottomLayout->addWidget(cancel);
    bottomLayout->addStretch();
    layout->addWidget(bottom);

    auto* bubble = new TLBubbleLabel(dialog);
    QObject::connect(cancel, &QPushButton::clicked, dialog, &QDialog::reject);
    const auto complain = [bubble, field, title] {
        bubble->setText(QStringLiteral("%1: please enter the VX URL").arg(title));
        bubble->SetBubbleParam(BubbleDirection::Up, Scaled(40));
        bubble->show();
        bubble->move(field->pos() + QPoint(0, Scaled(10)));
    };
    QObject::connect(ok, &QPushButton::clicked, bubble, complain);
    QTimer::singleShot(400, ok, [ok] { ok->click(); });
    TLMask::Instance()->ShowMask(dialog);
    dialog->setModal(true);
    dialog->show();
    dialog->activateWindow();
    return dialog;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Workstation"));

    QCommandLineParser parser;
    const QCommandLineOption themeOption(QStringLiteral("theme"), QString(), QStringLiteral("name"));
    const QCommandLineOption languageOption(QStringLiteral("language"), QString(), QStringLiteral("name"));
    const QCommandLineOption showOption(QStringLiteral("show"), QString(), QStringLiteral("what"));
    const QCommandLineOption scaleOption(QStringLiteral("scale"), QString(), QStringLiteral("percent"),
                                         QStringLiteral("100"));
    const QCommandLineOption laterOption(QStringLiteral("later"), QString(), QStringLiteral("percent"));
    parser.addOptions({themeOption, languageOption, showOption, scaleOption, laterOption});
    parser.process(application);

    ThemeManager themes;
    themes.Apply(parser.value(themeOption) == QLatin1String("dark") ? Theme::Dark : Theme::Light);
    LanguageManager languages(QCoreApplication::applicationDirPath() +
                              QStringLiteral("/../bin/translations"));
    languages.Apply(parser.value(languageOption));

    SetScale(parser.value(scaleOption).toInt(), &themes);
    const std::unique_ptr<QWidget> sheet(MakeSheet());
    sheet->show();
    sheet->activateWindow();
    const QString show = parser.value(showOption);
    QTimer::singleShot(300, sheet.get(), [&] {
        if (show == QLatin1String("url")) {
            auto* field = new TLLineEdit(QStringLiteral("https://elsewhere.example/"));
            field->m_sizeClass = 1;
            MakeForm(sheet.get(), QStringLiteral("Edit Url"), field);
        } else if (show == QLatin1String("app")) {
            auto* combo = new TLComboBox;
            FillApps(combo);
            combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
            MakeForm(sheet.get(), QStringLiteral("Add App"), combo);
            QTimer::singleShot(800, combo, [combo] { combo->showPopup(); });
        } else if (show == QLatin1String("question")) {
            (void)PackagedMsgBox::question(
                QStringLiteral("The last run was interrupted. Do you want to open its 4 tabs again?"));
        } else {
            TLToast::Show(QStringLiteral("Custom URL cannot exceed 5"), ToastType::Warning, 600000);
        }
    });
    if (parser.isSet(laterOption)) {
        QTimer::singleShot(2000, sheet.get(), [&] { SetScale(parser.value(laterOption).toInt(), &themes); });
    }
    return QApplication::exec();
}
