#include "preview/livepaper.h"

#include <algorithm>

namespace preview {

namespace {

bool isSame(const SettingsBytes& left, const SettingsBytes& right)
{
    return left.bytes == right.bytes && left.reason == right.reason;
}

} // namespace

LivePaper::Site::Site(const SettingsBytes& settings)
    : settings(settings)
    , printer(std::make_shared<JobPrinter>(settings))
{
}

LivePaper::LivePaper(QObject* parent)
    : QObject(parent)
    , now(std::make_shared<Site>(SettingsBytes()))
    , stored(now)
{
    composer.setMaxThreadCount(1);
    beginning.setSingleShot(true);
    connect(&beginning, &QTimer::timeout, this, &LivePaper::begin);
}

LivePaper::~LivePaper()
{
    composer.clear();
}

void LivePaper::setSettings(const SettingsBytes& newNow, const SettingsBytes& newStored)
{
    const SitePointer siteNow = siteOf(newNow);
    const SitePointer siteStored = isSame(newNow, newStored) ? siteNow : siteOf(newStored);
    if (siteNow == now && siteStored == stored)
        return;
    now = siteNow;
    stored = siteStored;
    startOver();
}

/// The one that there is, with all that was printed there, or a new one.
LivePaper::SitePointer LivePaper::siteOf(const SettingsBytes& settings) const
{
    for (const SitePointer& site : {now, stored}) {
        if (isSame(site->settings, settings))
            return site;
    }
    return std::make_shared<Site>(settings);
}

bool LivePaper::setJobs(const QVector<PaperJob>& jobs)
{
    const auto hasJob = [](const Document& document, const PaperJob& job) { return document.job == job; };
    if (std::equal(documents.begin(), documents.end(), jobs.begin(), jobs.end(), hasJob))
        return false;
    documents.clear();
    for (const PaperJob& job : jobs)
        documents.push_back({job, {}});
    startOver();
    return true;
}

void LivePaper::startOver()
{
    queue.clear();
    composer.clear();
    ++composition;
    beginning.start();
    emit begun();
}

void LivePaper::begin()
{
    const QString obstacle = documents.empty() ? QString() : now->printer->obstacle();
    if (!obstacle.isEmpty())
        return show({{}, obstacle});
    for (Document& document : documents) {
        forgetOtherSites(document);
        print(document, now);
    }
    for (Document& document : documents) {
        if (stored != now && stored->printer->obstacle().isEmpty())
            print(document, stored);
    }
    composeWhenPrinted();
}

void LivePaper::forgetOtherSites(Document& document) const
{
    std::map<SitePointer, PrintedJob> kept;
    for (const auto& [site, printed] : document.printed) {
        if (site == now || site == stored)
            kept[site] = printed;
    }
    document.printed = kept;
}

/// Unless it is printed there.
void LivePaper::print(Document& document, const SitePointer& site)
{
    if (document.printed.count(site) > 0)
        return;
    queue.add(site->printer, document.job.bytes, [this, &document, site](const PrintedJob& printed) {
        document.printed[site] = printed;
        composeWhenPrinted();
    });
}

void LivePaper::composeWhenPrinted()
{
    if (!queue.isEmpty())
        return;
    composer.start([this, papers = printedPapers(), number = composition] {
        const ComposedPaper composed = compose(papers);
        const auto take = [this, composed, number] {
            if (number == composition)
                show(composed);
        };
        QMetaObject::invokeMethod(this, take, Qt::QueuedConnection);
    });
}

QVector<PrintedPaper> LivePaper::printedPapers() const
{
    QVector<PrintedPaper> papers;
    for (const Document& document : documents) {
        const auto before = document.printed.find(stored);
        papers += PrintedPaper {document.job.title, document.printed.at(now), {}};
        if (before != document.printed.end())
            papers.last().before = before->second;
    }
    return papers;
}

void LivePaper::show(const ComposedPaper& composed)
{
    shown = composed;
    emit changed();
}

} // namespace preview
