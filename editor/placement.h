#ifndef ZELMORA_EDITOR_PLACEMENT_H
#define ZELMORA_EDITOR_PLACEMENT_H

#include <QRect>

#include <functional>

class QWidget;

/// @p place, a window with its frame, where all of it is within @p room: moved no farther than it must be, and smaller
/// only where it is larger than @p room.
QRect movedInto(const QRect& place, const QRect& room);

/// The size that @p window can have on its screen: less what panels take, and less its frame. How large that is, only
/// the window manager knows, once the window is shown; before, it is what the style thinks.
QSize roomOnScreen(const QWidget& window);

/// Makes all of @p window be on its screen, when it is shown for the first time, unless it is maximized or full-screen;
/// then calls @p next. Only then has the window its place and its frame: a window manager puts it where it thinks fit.
void settleOnScreen(
    QWidget& window, std::function<void()> next = [] {});

#endif
