#include "support/lookup.h"

#include <atomic>
#include <thread>
#include <vector>

/// A loaded file in the hands of several threads.
class TestConfigThreads : public QObject {
    Q_OBJECT

private slots:
    void treeIsMadeAmongLookUps();
};

// The tree is made by whichever thread first asks for it, while others look settings up.
void TestConfigThreads::treeIsMadeAmongLookUps()
{
    for (int round = 0; round < 20; ++round) {
        OpenConfig config;
        read(config, "zelmora: { doc: { a = 1; }; b = 2; };");
        std::atomic<int> failures {0};
        QVector<QDomElement> roots(4);
        std::vector<std::thread> threads;
        for (QDomElement& root : roots) {
            threads.emplace_back([&config, &failures, &root] {
                for (int i = 0; i < 50; ++i) {
                    if (i == 25)
                        root = config.rootElement();
                    failures += config.lookup("zelmora.doc.a") != "1" || config.lookup("zelmora.b") != "2";
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        QCOMPARE(failures.load(), 0);
        QCOMPARE(roots, QVector<QDomElement>(4, config.rootElement()));
    }
}

QTEST_GUILESS_MAIN(TestConfigThreads)
#include "tst_configthreads.moc"
