#include "preview/paperchoice.h"

#include "preview/samples.h"
#include "vocabulary/settings.h"

#include <QObject>

#include <algorithm>

namespace preview {

namespace {

using vocabulary::Method;
using vocabulary::SettingGroup;

bool actsOnPaper(const SettingGroup& group)
{
    return std::any_of(group.settings.begin(), group.settings.end(), [&](const vocabulary::Setting& setting) {
        return !vocabulary::methodsAffected(group, setting).isEmpty();
    });
}

QVector<const Method*> allMethods()
{
    QVector<const Method*> all;
    for (const Method& method : vocabulary::methods())
        all += &method;
    return all;
}

} // namespace

QVector<const Method*> methodsShownFor(const QString& name)
{
    const SettingGroup* const group = vocabulary::findGroup(name);
    if (!group)
        return {};
    if (group->isDocument)
        return vocabulary::methodsOf(*group);
    return actsOnPaper(*group) ? allMethods() : QVector<const Method*>();
}

bool PaperChoice::setGroup(const QString& name)
{
    if (name == group || methodsShownFor(name).isEmpty())
        return false;
    group = name;
    return true;
}

QVector<PaperChoice::Offer> PaperChoice::offers() const
{
    QVector<PaperJob> samples;
    for (const Method* method : methodsShownFor(group)) {
        const Sample* const sample = findSample(method->name);
        samples += PaperJob {sample->title(), sample->job()};
    }
    QVector<Offer> offers;
    if (samples.size() == vocabulary::methods().size())
        offers += Offer {QObject::tr("All documents"), samples};
    for (const PaperJob& sample : samples)
        offers += Offer {sample.title, {sample}};
    if (const auto own = choices.value(group).own)
        offers += Offer {own->title, {*own}};
    return offers;
}

QStringList PaperChoice::titles() const
{
    QStringList titles;
    for (const Offer& offer : offers())
        titles += offer.title;
    return titles;
}

int PaperChoice::current() const
{
    return group.isEmpty() ? -1 : choices.value(group).index;
}

void PaperChoice::choose(int index)
{
    choices[group].index = index;
}

void PaperChoice::chooseOwn(const PaperJob& job)
{
    Choice& choice = choices[group];
    choice.own = job;
    choice.index = offers().size() - 1;
}

QVector<PaperJob> PaperChoice::jobs() const
{
    return group.isEmpty() ? QVector<PaperJob>() : offers().at(current()).jobs;
}

} // namespace preview
