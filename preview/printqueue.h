#ifndef ZELMORA_PREVIEW_PRINTQUEUE_H
#define ZELMORA_PREVIEW_PRINTQUEUE_H

#include "preview/jobprinter.h"

#include <QObject>

#include <deque>
#include <functional>
#include <map>

namespace preview {

class PrintRun;

/// Prints jobs behind a window, two at a time, in the order in which they come.
class PrintQueue : public QObject {
    Q_OBJECT

public:
    static const int mostAtOnce = 2;

    explicit PrintQueue(QObject* parent = nullptr);
    /// clear().
    ~PrintQueue() override;

    /// Has @p printer, which has no obstacle, print @p job. @p done is called when it has, never before this returns.
    void add(std::shared_ptr<JobPrinter> printer, const QByteArray& job,
             std::function<void(const PrintedJob& printed)> done);
    /// Ends what is being printed and forgets what waits; nothing more is heard of it.
    void clear();
    /// Whether all is printed.
    bool isEmpty() const { return running.empty() && waiting.empty(); }

private:
    struct Order {
        std::shared_ptr<JobPrinter> printer;
        QByteArray job;
        std::function<void(const PrintedJob&)> done;
    };
    struct Running {
        std::unique_ptr<PrintRun> run;
        std::function<void(const PrintedJob&)> done;
    };

    void startMore();
    void start(const Order& order);
    void finish(int number);

    std::deque<Order> waiting;
    std::map<int, Running> running; ///< by their numbers, of which each is given once
    int lastNumber = 0;
};

} // namespace preview

#endif
