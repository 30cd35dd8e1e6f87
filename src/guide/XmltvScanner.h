#pragma once

#include "guide/XmltvTime.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringConverter>
#include <QStringList>

#include <array>
#include <optional>

/// A channel as a guide declares it.
struct XmltvChannel
{
    QString id;        ///< never empty
    QStringList names; ///< as they stand, without empty ones
};

/// A programme as a guide lists it.
struct XmltvProgramme
{
    QString channel;  ///< never empty
    qint64 start = 0; ///< seconds since the epoch
    qint64 stop = 0;  ///< 0 when it is missing or not after the start
    QString title;
    QString description;
};

/// Receives what XmltvScanner reads, in the order of the document.
class XmltvHandler
{
public:
    XmltvHandler() = default;
    virtual ~XmltvHandler() = default;
    Q_DISABLE_COPY_MOVE(XmltvHandler)

    virtual void channel(const XmltvChannel &channel) = 0;
    /// Whether a programme that begins here is reported. The texts of others are not read.
    virtual bool wantsProgramme(const QString & /*channel*/, qint64 /*start*/) { return true; }
    virtual void programme(const XmltvProgramme &programme) = 0;
};

/// Reads an XMLTV document in pieces of any size and reports its channels and programmes.
///
/// It is no XML parser. Providers' guides are broken often, so that it reads on behind whatever is
/// wrong: an unclosed element ends where the next one begins, a stray "<" or "&" is text. A
/// well-formed document reads as with an XML parser; entities that it declares stay as they are.
/// Memory is bounded by the limits below, whatever comes.
class XmltvScanner final
{
public:
    /// A longer element is dropped.
    static constexpr qsizetype longestElement = 1024LL * 1024;
    /// Longer texts are cut, in UTF-16 units.
    static constexpr qsizetype longestTitle = 1024;
    static constexpr qsizetype longestDescription = 16LL * 1024;

    /// Of several titles or descriptions the first one in `language` is reported, for instance
    /// "de", otherwise the first one.
    explicit XmltvScanner(XmltvHandler &receiver, QString language = {});

    void add(QByteArrayView bytes);
    /// Reads what waited for more. Call it once, at the end.
    void finish();

    /// A guide's root element was seen.
    bool sawRoot() const { return rootSeen; }
    /// The root element was closed, and no other element followed.
    bool isComplete() const { return rootClosed; }
    /// Elements without a channel, without a start or above the limit.
    int droppedElements() const { return dropped; }
    /// A time named a zone that is not known and was taken as UTC.
    bool sawUnknownZone() const { return unknownZone; }

private:
    enum class Element
    {
        None,
        Channel,
        Programme
    };
    enum class Field
    {
        None,
        Name,
        Title,
        Description
    };
    struct FieldText
    {
        QString text;
        bool preferred = false;
    };
    static constexpr int delimiters = 3;
    static constexpr qsizetype incomplete = -1;

    void decideEncoding(bool atEnd);
    void addDecoded(QByteArrayView bytes);
    void scan(bool atEnd);
    qsizetype endOfText(qsizetype from) const;
    qsizetype takeMarkup(qsizetype from, bool atEnd);
    qsizetype endOfMarkup(qsizetype from, int &delimiter, bool &valid);
    void takeDelimited(int delimiter, QByteArrayView content);
    void takeTag(QByteArrayView tag);
    void beginTag(QByteArrayView name, QByteArrayView tag);
    void endTag(QByteArrayView name);
    void takeDeclaration(QByteArrayView declaration);
    void count(qsizetype bytes);

    void beginChannel(QByteArrayView tag);
    void beginProgramme(QByteArrayView tag);
    void beginField(Field which, QByteArrayView tag);
    void addText(QByteArrayView bytes);
    void endField();
    void endElement();
    void drop();
    QString decoded(QByteArrayView bytes);
    std::optional<qint64> timeOf(QByteArrayView text);

    XmltvHandler &handler;
    QString preferredLanguage;

    QByteArray head; ///< the first bytes, until they tell the encoding
    bool encodingDecided = false;
    std::optional<QStringDecoder> fromUtf16; ///< of the whole document
    std::optional<QStringEncoder> toUtf8;
    std::optional<QStringDecoder> fromDeclared; ///< of single texts

    QByteArray pending; ///< what was not taken yet
    /// Per delimiter: before this place of `pending` none ends.
    std::array<qsizetype, delimiters> searchedTo{};

    Element element = Element::None;
    qsizetype elementBytes = 0;
    XmltvChannel openChannel;
    XmltvProgramme openProgramme;
    FieldText title;
    FieldText description;
    Field field = Field::None;
    bool fieldPreferred = false;
    QByteArray fieldBytes;

    bool rootSeen = false;
    bool rootClosed = false;
    bool unknownZone = false;
    int dropped = 0;
};
