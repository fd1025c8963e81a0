#include "editor/placement.h"

#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <utility>

namespace {

QMargins frameOf(const QWidget& window)
{
    if (const QWindow* const shown = window.windowHandle())
        return shown->frameMargins();
    const int border = window.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    return {border, window.style()->pixelMetric(QStyle::PM_TitleBarHeight), border, border};
}

void fitToScreen(QWidget& window)
{
    const QMargins frame = frameOf(window);
    const QRect place = window.geometry().marginsAdded(frame);
    const QRect fitting = movedInto(place, window.screen()->availableGeometry());
    if (fitting != place)
        window.setGeometry(fitting.marginsRemoved(frame));
}

/// Waits for a window to be shown, and then for the system to want its contents: it does when all is in place. Belongs
/// to the window, and is gone when it is done.
class Settler : public QObject {
public:
    Settler(QWidget& theWindow, std::function<void()> theNext)
        : QObject(&theWindow)
        , window(theWindow)
        , next(std::move(theNext))
    {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (object == &window && event->type() == QEvent::Show) {
            window.windowHandle()->installEventFilter(this);
        } else if (object != &window && event->type() == QEvent::Expose) {
            object->removeEventFilter(this);
            QTimer::singleShot(0, this, &Settler::settle); // when the window itself has seen the event
        }
        return false;
    }

private:
    void settle()
    {
        deleteLater();
        if (!window.isMaximized() && !window.isFullScreen())
            fitToScreen(window);
        next();
    }

    QWidget& window;
    const std::function<void()> next;
};

} // namespace

QRect movedInto(const QRect& place, const QRect& room)
{
    QRect moved(place.topLeft(), place.size().boundedTo(room.size()));
    moved.moveRight(qMin(moved.right(), room.right()));
    moved.moveBottom(qMin(moved.bottom(), room.bottom()));
    moved.moveLeft(qMax(moved.left(), room.left()));
    moved.moveTop(qMax(moved.top(), room.top()));
    return moved;
}

QSize roomOnScreen(const QWidget& window)
{
    return window.screen()->availableGeometry().marginsRemoved(frameOf(window)).size();
}

void settleOnScreen(QWidget& window, std::function<void()> next)
{
    new Settler(window, std::move(next));
}
