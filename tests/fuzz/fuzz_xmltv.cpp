// A programme guide. How it is cut into chunks must not matter, and what is reported keeps the
// limits.

#include "FuzzTarget.h"

#include "guide/XmltvScanner.h"

#include <QStringList>

namespace {

/// Checks what a scanner reports, and keeps it.
class Collector final : public XmltvHandler
{
public:
    void channel(const XmltvChannel &channel) override
    {
        require(!channel.id.isEmpty(), "a channel has an id");
        for (const QString &name : channel.names) {
            require(!name.isEmpty(), "a name is not empty");
            require(name.size() <= XmltvScanner::longestTitle, "a name has a limit");
        }
        reported << channel.id + u'|' + channel.names.join(u'|');
    }

    void programme(const XmltvProgramme &programme) override
    {
        require(!programme.channel.isEmpty(), "a programme has a channel");
        require(programme.stop == 0 || programme.stop > programme.start,
                "a programme stops after its start");
        require(programme.title.size() <= XmltvScanner::longestTitle, "a title has a limit");
        require(programme.title == programme.title.simplified(), "a title is one line");
        require(programme.description.size() <= XmltvScanner::longestDescription,
                "a description has a limit");
        reported << programme.channel + u'|' + QString::number(programme.start) + u'|' +
                        QString::number(programme.stop) + u'|' + programme.title + u'|' +
                        programme.description;
    }

    QStringList reported;
};

/// What a scanner reports and how it judges the document, read in chunks of that size.
QStringList read(QByteArrayView document, qsizetype chunk)
{
    Collector collector;
    XmltvScanner scanner(collector, QStringLiteral("de"));
    while (!document.isEmpty()) {
        const qsizetype size = qMin(chunk, document.size());
        scanner.add(document.first(size));
        document = document.sliced(size);
    }
    scanner.finish();
    collector.reported << QStringLiteral("%1 %2 %3 %4")
                              .arg(scanner.sawRoot())
                              .arg(scanner.isComplete())
                              .arg(scanner.droppedElements())
                              .arg(scanner.sawUnknownZone());
    return collector.reported;
}

} // namespace

void fuzz(FuzzInput &input)
{
    const qsizetype chunk = 1 + input.below(255);
    const QByteArray document = input.rest();
    const QStringList whole = read(document, qMax<qsizetype>(1, document.size()));
    require(read(document, chunk) == whole, "chunks read like the whole document");
    require(read(document, 1) == whole, "single bytes read like the whole document");
}
