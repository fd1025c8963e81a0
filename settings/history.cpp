#include "settings/history.h"

namespace settings {

namespace {

/// Whether @p step leaves all as it was.
bool isNothing(const SettingStep& step)
{
    return step.before.has_value() == step.after.has_value()
        && (!step.before || (step.before->name == step.after->name && step.before->value == step.after->value));
}

/// Of the same setting: the value in between is of no interest. False when it is another one.
bool isJoined(TreeStep& earlier, const TreeStep& later)
{
    auto* const first = std::get_if<SettingStep>(&earlier);
    const auto* const second = std::get_if<SettingStep>(&later);
    if (!first || !second || first->group != second->group || first->place != second->place)
        return false;
    if (first->after.has_value() != second->before.has_value())
        return false;
    first->after = second->after;
    return true;
}

void join(TreeChange& change, const TreeChange& later)
{
    for (const TreeStep& step : later) {
        if (change.isEmpty() || !isJoined(change.last(), step))
            change += step;
    }
    if (const auto* const last = std::get_if<SettingStep>(&change.last())) {
        if (isNothing(*last))
            change.removeLast();
    }
}

} // namespace

void History::add(const TreeChange& change, const QString& text, const QString& typing)
{
    entries.resize(done);
    const bool goesOn = !typing.isEmpty() && typing == typed && done > 0;
    if (!goesOn)
        entries += Entry {change, text};
    else
        join(entries.last().change, change);
    typed = typing;
    if (entries.last().change.isEmpty()) {
        entries.removeLast();
        typed.clear();
    }
    done = entries.size();
}

void History::clear()
{
    entries.clear();
    done = 0;
    typed.clear();
}

QString History::undoText() const
{
    return canUndo() ? entries.at(done - 1).text : QString();
}

QString History::redoText() const
{
    return canRedo() ? entries.at(done).text : QString();
}

TreeChange History::undo()
{
    typed.clear();
    return reversed(entries.at(--done).change);
}

TreeChange History::redo()
{
    typed.clear();
    return entries.at(done++).change;
}

} // namespace settings
