#ifndef ZELMORA_PREVIEW_LIVEPAPER_H
#define ZELMORA_PREVIEW_LIVEPAPER_H

#include "preview/composedpaper.h"
#include "preview/paperjob.h"
#include "preview/printqueue.h"
#include "preview/settingsbytes.h"

#include <QThreadPool>
#include <QTimer>

#include <vector>

namespace preview {

/// The paper of jobs while their settings are changed, printed by the print program itself. What is not as it would be
/// with the settings of the file is marked as changed.
///
/// All is done behind the window, by its event loop: with the next round of it, so that several changes at once are
/// one. A change ends the printing that is under way. With the same settings the same job is printed once.
class LivePaper : public QObject {
    Q_OBJECT

public:
    /// Without jobs, and without settings in the window or in the file.
    explicit LivePaper(QObject* parent = nullptr);
    /// Ends what is under way.
    ~LivePaper() override;

    /// @p now: the settings as they are in the window; @p stored: as the file has them.
    void setSettings(const SettingsBytes& now, const SettingsBytes& stored);
    /// False when they are the same as before.
    bool setJobs(const QVector<PaperJob>& jobs);

    const paper::Sheet& sheet() const { return shown.sheet; } ///< as changed() told last
    /// Why there is no sheet, or not all of it: translated sentences, a line each. Empty when it is whole.
    QString trouble() const { return shown.trouble; }

signals:
    void begun(); ///< to print: changed() follows, unless begun() does
    void changed();

private:
    /// Settings, and who prints with them.
    struct Site {
        explicit Site(const SettingsBytes& settings);

        const SettingsBytes settings;
        const std::shared_ptr<JobPrinter> printer;
    };
    using SitePointer = std::shared_ptr<const Site>;

    struct Document {
        PaperJob job;
        std::map<SitePointer, PrintedJob> printed;
    };

    SitePointer siteOf(const SettingsBytes& settings) const;
    void startOver();
    void begin();
    void forgetOtherSites(Document& document) const;
    void print(Document& document, const SitePointer& site);
    void composeWhenPrinted();
    QVector<PrintedPaper> printedPapers() const;
    void show(const ComposedPaper& composed);

    SitePointer now;
    SitePointer stored; ///< the same when the settings are
    std::vector<Document> documents;
    ComposedPaper shown;
    QTimer beginning;
    PrintQueue queue;
    int composition = 0; ///< the number of the latest; earlier ones are of no interest any more
    QThreadPool composer; ///< of one thread; the last member, since it waits for that
};

} // namespace preview

#endif
