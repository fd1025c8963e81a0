#include "editor/grouplist.h"

#include "editor/icons.h"
#include "settings/editedsettings.h"

#include <QStyle>

using check::Severity;
using settings::EditedSettings;
using settings::Search;
using vocabulary::SettingGroup;

namespace {

const int pictureSide = 16;

/// An empty picture keeps the names below each other.
QIcon noPicture()
{
    QPixmap picture(pictureSide, pictureSide);
    picture.fill(Qt::transparent);
    return picture;
}

QString textOf(const SettingGroup& group, int hits)
{
    const QString title = QObject::tr(group.title);
    return hits == 0 ? title : QStringLiteral("%1 (%2)").arg(title).arg(hits);
}

} // namespace

GroupList::GroupList(const EditedSettings& theSettings)
    : settings(theSettings)
    , groups(settings::groupsInOrder())
{
    setAccessibleName(QObject::tr("Groups of settings"));
    setIconSize(QSize(pictureSide, pictureSide));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideMiddle); // so that the hits are seen
    for (const SettingGroup* const group : groups) {
        auto* const item = new QListWidgetItem(noPicture(), textOf(*group, 0), this);
        item->setToolTip(QObject::tr(group->description));
    }
    setCurrentRow(static_cast<int>(groups.indexOf(vocabulary::findGroup(QStringLiteral("receiptdoc")))));
    connect(this, &QListWidget::currentRowChanged, this, [this] { emit chosen(current()); });
}

const SettingGroup& GroupList::current() const
{
    return *groups.at(currentRow());
}

void GroupList::choose(const SettingGroup& group)
{
    setCurrentRow(groups.indexOf(&group));
}

void GroupList::refresh()
{
    const QHash<QString, Severity> worst = worstOf(settings);
    for (int i = 0; i < groups.size(); ++i) {
        const auto found = worst.constFind(groups.at(i)->name);
        const bool isMarked = found != worst.constEnd() && *found != Severity::Note;
        item(i)->setIcon(isMarked ? icons::severity(*found) : noPicture());
        item(i)->setData(Qt::AccessibleDescriptionRole, isMarked ? QObject::tr("something is wrong") : QString());
    }
}

int GroupList::filter(const Search& search)
{
    int sum = 0;
    int first = -1;
    for (int i = 0; i < groups.size(); ++i) {
        const int hits = search.isEmpty() ? 0 : search.hitsIn(settings, *groups.at(i));
        item(i)->setText(textOf(*groups.at(i), hits));
        item(i)->setHidden(hits == 0 && !search.isEmpty());
        first = hits > 0 && first < 0 ? i : first;
        sum += hits;
    }
    for (int i = 0; i < count() && first < 0; ++i)
        item(i)->setHidden(false); // all of them are better than none
    if (currentItem()->isHidden())
        setCurrentRow(first);
    return sum;
}

void GroupList::goOn()
{
    int next = currentRow();
    do {
        next = (next + 1) % count();
    } while (item(next)->isHidden());
    setCurrentRow(next);
}

QSize GroupList::sizeHint() const
{
    int widest = 0; // without the hits
    for (const SettingGroup* const group : groups)
        widest = qMax(widest, fontMetrics().horizontalAdvance(textOf(*group, 0)));
    const int margins = 4 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
    return {pictureSide + widest + margins + 2 * frameWidth(), QListWidget::sizeHint().height()};
}

QSize GroupList::minimumSizeHint() const
{
    return {60, 40};
}
