#include "preview/printqueue.h"

#include "preview/printrun.h"

namespace preview {

PrintQueue::PrintQueue(QObject* parent)
    : QObject(parent)
{
}

PrintQueue::~PrintQueue() = default;

void PrintQueue::add(std::shared_ptr<JobPrinter> printer, const QByteArray& job,
                     std::function<void(const PrintedJob&)> done)
{
    waiting.push_back({std::move(printer), job, std::move(done)});
    startMore();
}

void PrintQueue::clear()
{
    waiting.clear();
    running.clear();
}

void PrintQueue::startMore()
{
    while (running.size() < mostAtOnce && !waiting.empty()) {
        const Order order = waiting.front();
        waiting.pop_front();
        start(order);
    }
}

/// The run goes by a number: when word of its end arrives, another one may stand where it stood.
void PrintQueue::start(const Order& order)
{
    const int number = ++lastNumber;
    Running& started = running[number];
    started = {order.printer->newRun(), order.done};
    connect(
        started.run.get(), &PrintRun::finished, this, [this, number] { finish(number); }, Qt::QueuedConnection);
    started.run->start(order.job);
}

void PrintQueue::finish(int number)
{
    const auto found = running.find(number);
    if (found == running.end())
        return;
    const Running finished = std::move(found->second);
    running.erase(found);
    startMore();
    finished.done({finished.run->script(), finished.run->failure()});
}

} // namespace preview
