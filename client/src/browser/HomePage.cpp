#include "HomePage.h"

#include "AppTileDelegate.h"
#include "look/ScaledWidget.h"
#include "look/SymbolicIcon.h"

#include <QtCore/QEvent>
#include <QtCore/QSortFilterProxyModel>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr int ColumnWidth = 1080; // [px]
constexpr int SearchWidth = 280;  // [px]
constexpr int TileGap = 4;        // [px]

} // namespace

HomePage::HomePage(const QString& userName, TLPluginBaseManager* apps, const PictureLoader& loadPicture,
                   QWidget* parent)
    : QWidget(parent)
    , m_userName(userName)
    , m_model(new AppListModel(apps, loadPicture, this))
    , m_filter(new QSortFilterProxyModel(this))
    , m_greeting(new QLabel)
    , m_empty(new QLabel)
    , m_search(new QLineEdit)
    , m_grid(new QListView)
    , m_content(new QWidget)
    , m_head(new QHBoxLayout)
    , m_column(new QVBoxLayout(m_content))
{
    setObjectName(QStringLiteral("home_page"));
    setAttribute(Qt::WA_StyledBackground);
    SetUpHead();
    SetUpGrid();
    m_column->addLayout(m_head);
    m_column->addWidget(m_empty);
    m_column->addWidget(m_grid, 1);
    auto* across = new QHBoxLayout(this);
    across->setContentsMargins(0, 0, 0, 0);
    across->addStretch(1);
    across->addWidget(m_content, 1000);
    across->addStretch(1);
    setFocusProxy(m_search);
    HomePage::AdjustForDpi();
    Retranslate();
}

void HomePage::AdjustForDpi()
{
    SetRelativeFont(m_greeting, 2, QFont::DemiBold);
    m_search->setFixedWidth(Scaled(SearchWidth));
    m_grid->setSpacing(Scaled(TileGap)); // this also lays out the tiles again
    m_content->setMaximumWidth(Scaled(ColumnWidth));
    m_head->setSpacing(Scaled(16));
    m_column->setContentsMargins(Scaled(QMargins(32, 40, 32, 0)));
    m_column->setSpacing(Scaled(24));
}

void HomePage::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
}

bool HomePage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (watched == m_search && key == Qt::Key_Down && m_filter->rowCount() > 0) {
            m_grid->setFocus(Qt::TabFocusReason);
            if (!m_grid->currentIndex().isValid()) {
                m_grid->setCurrentIndex(m_filter->index(0, 0));
            }
            return true;
        }
        if (watched == m_grid && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space)) {
            Choose(m_grid->currentIndex());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void HomePage::SetUpHead()
{
    m_greeting->setObjectName(QStringLiteral("home_greeting"));
    m_greeting->setTextFormat(Qt::PlainText);
    m_greeting->setWordWrap(true);

    m_search->setObjectName(QStringLiteral("home_search"));
    m_search->setClearButtonEnabled(true);
    m_search->addAction(SymbolicIcon::Make(QStringLiteral("search")), QLineEdit::LeadingPosition);
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_filter->setFilterFixedString(text.trimmed());
        UpdateEmpty();
    });
    connect(m_search, &QLineEdit::returnPressed, this, [this] {
        if (!m_search->text().trimmed().isEmpty()) {
            Choose(m_filter->index(0, 0));
        }
    });

    m_head->addWidget(m_greeting, 1);
    m_head->addWidget(m_search, 0, Qt::AlignBottom);
}

void HomePage::SetUpGrid()
{
    m_filter->setSourceModel(m_model);
    m_filter->setFilterCaseSensitivity(Qt::CaseInsensitive);
    connect(m_filter, &QAbstractItemModel::modelReset, this, &HomePage::UpdateEmpty);

    m_grid->setObjectName(QStringLiteral("app_grid"));
    m_grid->setModel(m_filter);
    m_grid->setItemDelegate(new AppTileDelegate(m_grid));
    m_grid->setViewMode(QListView::IconMode);
    m_grid->setMovement(QListView::Static);
    m_grid->setResizeMode(QListView::Adjust);
    m_grid->setUniformItemSizes(true);
    m_grid->setMouseTracking(true);
    m_grid->setFrameShape(QFrame::NoFrame);
    m_grid->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_grid->setSelectionMode(QAbstractItemView::NoSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->viewport()->setCursor(Qt::PointingHandCursor);
    m_grid->installEventFilter(this);
    connect(m_grid, &QListView::clicked, this, &HomePage::Choose);

    m_empty->setObjectName(QStringLiteral("home_empty"));
    m_empty->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void HomePage::Retranslate()
{
    m_greeting->setText(m_userName.isEmpty() ? tr("Welcome") : tr("Welcome, %1").arg(m_userName));
    m_search->setPlaceholderText(tr("Search apps"));
    m_search->setAccessibleName(tr("Search apps"));
    m_grid->setAccessibleName(tr("Apps"));
    setAccessibleName(tr("Home"));
    UpdateEmpty();
}

void HomePage::UpdateEmpty()
{
    const bool empty = m_filter->rowCount() == 0;
    m_empty->setText(m_model->rowCount() == 0 ? tr("There are no apps in your account yet.")
                                              : tr("No app has this name."));
    m_empty->setVisible(empty);
    m_grid->setVisible(!empty);
    m_search->setEnabled(m_model->rowCount() > 0);
}

void HomePage::Choose(const QModelIndex& index)
{
    if (index.isValid()) {
        Q_EMIT SigAppChosen(index.data(AppListModel::ServiceCodeRole).toString());
    }
}
