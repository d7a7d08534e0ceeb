#include "BareSettingsPage.h"

#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace {

QVBoxLayout* Column(QWidget* widget)
{
    auto* const column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    return column;
}

QHBoxLayout* Line(QWidget* widget = nullptr)
{
    auto* const line = new QHBoxLayout(widget);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(0);
    return line;
}

QWidget* Row(QWidget* parent, const QString& text, bool hasIcon, bool isEditable)
{
    auto* const row = new QWidget(parent);
    row->setFixedHeight(32);
    row->setCursor(Qt::PointingHandCursor);
    auto* const line = Line(row);
    line->setContentsMargins(12, 0, 12, 0);
    line->addWidget(new QCheckBox(row));
    auto* const icon = Line();
    icon->setContentsMargins(0, 0, 4, 0);
    line->addLayout(icon);
    if (hasIcon) {
        auto* const picture = new QLabel(row);
        picture->setFixedSize(16, 16);
        icon->addWidget(picture);
    }
    auto* const label = new QLabel(text, row);
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    line->addWidget(label);
    auto* const mark = new QWidget(row);
    auto* const markLine = Line(mark);
    markLine->setContentsMargins(4, 0, 0, 0);
    markLine->addWidget(new QLabel(QStringLiteral("Priority open"), mark));
    mark->hide();
    line->addWidget(mark);
    line->addItem(new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum));
    auto* const trailing = Line();
    line->addLayout(trailing);
    if (isEditable) {
        auto* const operate = new QWidget(row);
        auto* const buttons = Line(operate);
        buttons->setSpacing(10);
        buttons->addWidget(new QPushButton(operate));
        buttons->addWidget(new QPushButton(operate));
        trailing->addWidget(operate);
        operate->hide();
    }
    auto* const first = new QPushButton(QStringLiteral("Open first"), row);
    first->hide();
    line->addWidget(first);
    return row;
}

QWidget* Title(QWidget* parent, const QString& text)
{
    auto* const title = new QWidget(parent);
    title->setFixedHeight(24);
    Line(title)->addWidget(new QLabel(text, title), 0, Qt::AlignLeft | Qt::AlignTop);
    return title;
}

/// A list of rows; returns the layout for them in `rows`.
QWidget* List(QWidget* parent, const QString& link, QVBoxLayout*& rows)
{
    auto* const list = new QWidget(parent);
    auto* const column = Column(list);
    column->setContentsMargins(12, 0, 16, 0);
    rows = Column(nullptr);
    column->addLayout(rows);
    auto* const links = Line();
    links->setContentsMargins(12, 2, 0, 12);
    links->setSpacing(4);
    links->addWidget(new QLabel(link, list));
    const QString count = QStringLiteral("<font color=\"#999999\">(</font><font color=\"#333333\">5</font>"
                                         "<font color=\"#999999\">/5)</font>");
    links->addWidget(new QLabel(count, list));
    links->addItem(new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum));
    column->addLayout(links);
    return list;
}

} // namespace

QWidget* MakeBareSettingsPage(int systemRows, int customRows, int appRows)
{
    auto* const page = new QWidget;
    page->resize(400, 300);
    auto* const outer = Column(page);
    auto* const status = new QWidget(page);
    outer->addWidget(status);
    outer->addItem(new QSpacerItem(20, 40, QSizePolicy::Minimum, QSizePolicy::Expanding));

    // What the status area shows while loading and after a failure.
    auto* const loading = new QWidget(status);
    auto* const loadingColumn = Column(loading);
    loadingColumn->addWidget(new QWidget(loading));
    loadingColumn->addWidget(new QLabel(QStringLiteral("Loading"), loading));
    loading->hide();
    auto* const failed = new QWidget(status);
    auto* const failedColumn = Column(failed);
    failedColumn->addWidget(new QLabel(failed));
    failedColumn->addWidget(new QLabel(QStringLiteral("Failed"), failed));
    failedColumn->addWidget(new QPushButton(QStringLiteral("Refresh"), failed));
    failed->hide();

    auto* const content = new QWidget(status);
    Column(status)->addWidget(content);
    auto* const column = Column(content);
    QVBoxLayout* rows = nullptr;
    QVBoxLayout* apps = nullptr;
    column->addWidget(Title(content, QStringLiteral("Set the URL that opens when you start it")));
    QWidget* const list = List(content, QStringLiteral("+custom URL"), rows);
    column->addWidget(list);
    column->addWidget(Title(content, QStringLiteral("Set the App that opens when you start it")));
    QWidget* const appList = List(content, QStringLiteral("+Add App"), apps);
    column->addWidget(appList);

    rows->addWidget(Row(list, QStringLiteral("Homepage"), false, false));
    for (int i = 0; i < systemRows; ++i) {
        rows->addWidget(Row(list, QStringLiteral("System %1").arg(i), false, false));
    }
    for (int i = 0; i < customRows; ++i) {
        rows->addWidget(Row(list, QStringLiteral("https://vx.example/%1").arg(i), false, true));
    }
    for (int i = 0; i < appRows; ++i) {
        apps->addWidget(Row(appList, QStringLiteral("App %1").arg(i), true, true));
    }
    return page;
}
