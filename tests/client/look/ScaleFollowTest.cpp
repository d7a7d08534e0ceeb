#include "ScaledWindowTest.h"

#include "FindBar.h"
#include "MessageContent.h"
#include "MessagePage.h"
#include "PlainPageView.h"
#include "TabListPopup.h"
#include "notices/NoticeBar.h"
#include "pages/PageDialog.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QToolButton>

#include <functional>

namespace {

struct Measure
{
    QString name;
    int pixels;
};

void AddMeasures(const QLayout& layout, QVector<Measure>* measures)
{
    const QMargins margins = layout.contentsMargins();
    const QString name = QStringLiteral("layout %1 of %2 %3")
                             .arg(measures->size())
                             .arg(QLatin1String(layout.parentWidget()->metaObject()->className()),
                                  layout.parentWidget()->objectName());
    for (const int pixels : {margins.left(), margins.top(), margins.right(), margins.bottom()}) {
        measures->append({name, pixels});
    }
    int parts = 0; // not the gaps, which have no spacing around them
    for (int i = 0; i < layout.count(); ++i) {
        if (QSpacerItem* gap = layout.itemAt(i)->spacerItem()) {
            measures->append({name + QStringLiteral(", gap"), gap->sizeHint().height()});
        } else {
            ++parts;
        }
    }
    if (parts > 1) {
        measures->append({name + QStringLiteral(", spacing"), layout.spacing()});
    }
}

/// All sizes of the widget and its children that have been set in pixels.
QVector<Measure> GetMeasures(const QWidget& top)
{
    QVector<Measure> measures;
    const auto widgets = top.findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        // Qt creates these itself.
        if (widget->objectName().startsWith(QLatin1String("qt_")) ||
            qobject_cast<QLineEdit*>(widget->parent())) {
            continue;
        }
        const QString name =
            QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName();
        const QMargins margins = widget->contentsMargins();
        if (qobject_cast<const QLabel*>(widget) || qobject_cast<const QDialogButtonBox*>(widget)) {
            measures.append({name + QStringLiteral(", left"), margins.left()});
            measures.append({name + QStringLiteral(", top"), margins.top()});
        }
        if (widget->maximumWidth() < QWIDGETSIZE_MAX) {
            measures.append({name + QStringLiteral(", width"), widget->maximumWidth()});
        }
        // The height of a list comes from its rows.
        if (widget->maximumHeight() < QWIDGETSIZE_MAX && !qobject_cast<const QListWidget*>(widget)) {
            measures.append({name + QStringLiteral(", height"), widget->maximumHeight()});
        }
        if (const auto* button = qobject_cast<const QToolButton*>(widget)) {
            measures.append({name + QStringLiteral(", icon"), button->iconSize().width()});
        }
    }
    const auto layouts = top.findChildren<QLayout*>();
    for (const QLayout* layout : layouts) {
        AddMeasures(*layout, &measures);
    }
    return measures;
}

} // namespace

/// Every widget has the sizes of the scale, both when it is made and when the scale changes.
class ScaleFollowTest : public ScaledWindowTest
{
protected:
    /// Checks the widget at each scale, as a shown one that changes and as a new one.
    void ExpectToFollow(const std::function<std::unique_ptr<QWidget>()>& make)
    {
        const auto shown = make();
        shown->show();
        const QVector<Measure> before = GetMeasures(*shown);
        ASSERT_FALSE(before.isEmpty());
        const auto expect = [&before](const QWidget& widget, double scale) {
            const QVector<Measure> now = GetMeasures(widget);
            ASSERT_EQ(now.size(), before.size());
            for (int i = 0; i < now.size(); ++i) {
                EXPECT_EQ(now.at(i).pixels, qRound(before.at(i).pixels * scale))
                    << qPrintable(now.at(i).name) << " at " << scale;
            }
        };
        for (const double scale : {1.5, 2.0, 1.25, 1.0}) {
            SetScale(scale);
            expect(*shown, scale);
            expect(*make(), scale);
        }
    }
};

TEST_F(ScaleFollowTest, HomeFollows)
{
    ExpectToFollow([this] { return MakeHome(); });
}

TEST_F(ScaleFollowTest, NoticesFollow)
{
    ExpectToFollow([] {
        auto bar = std::make_unique<NoticeBar>();
        NoticeAction action;
        action.text = QStringLiteral("Do");
        bar->Show(QStringLiteral("a"), NoticeKind::Warning, QStringLiteral("text"), {action, action});
        bar->SetProgress(QStringLiteral("a"), 50);
        return bar;
    });
}

TEST_F(ScaleFollowTest, FindBarFollows)
{
    ExpectToFollow([] { return std::make_unique<FindBar>(); });
}

TEST_F(ScaleFollowTest, MessagePageFollows)
{
    ExpectToFollow([] {
        auto page = std::make_unique<MessagePage>();
        page->SetContent({QStringLiteral("warning"), QStringLiteral("headline"), QStringLiteral("text"),
                          QStringLiteral("https://a.example/"), QStringLiteral("detail"),
                          QStringLiteral("button")});
        return page;
    });
}

TEST_F(ScaleFollowTest, PlainPageFollows)
{
    ExpectToFollow([] { return std::make_unique<PlainPageView>(); });
}

TEST_F(ScaleFollowTest, PageDialogFollows)
{
    ExpectToFollow([] {
        return std::make_unique<PageDialog>(PageDialog::Kind::Prompt, QUrl(), QStringLiteral("text"),
                                            QString(), true);
    });
}

TEST_F(ScaleFollowTest, DialogOfEarlierTabsFollows)
{
    ExpectToFollow(
        [] { return std::make_unique<EarlierTabsDialog>(QVector<EarlierTabSet>{MakeEarlierSet()}); });
}

TEST_F(ScaleFollowTest, ListOfTabsFollows)
{
    ExpectToFollow([this] {
        auto list = std::make_unique<TabListPopup>(QStringList({QStringLiteral("a")}), 0, nullptr);
        list->setAttribute(Qt::WA_DeleteOnClose, false);
        list->PopUp(m_window->findChild<QToolButton*>(QStringLiteral("strip_list")));
        return list;
    });
}
