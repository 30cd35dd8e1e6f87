#pragma once

#include "library/LibraryRecords.h"
#include "model/SourceConfig.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>

#include <optional>

/// A backup: the sources and the library in one JSON file, whose format docs/backup.md tells.
class LibraryBackup final
{
    Q_DECLARE_TR_FUNCTIONS(LibraryBackup)

public:
    struct Content
    {
        QList<SourceConfig> sources;
        LibraryRows rows;
        /// False when passwords, keys and what looks like them in URLs were left out.
        bool hasCredentials = true;
    };

    LibraryBackup() = delete;

    /// The backup as JSON. Without credentials there are neither passwords nor keys in it, and
    /// "***" stands for them in URLs.
    static QByteArray write(const Content &content, bool withCredentials);
    /// Nothing when the text is no backup, is damaged or comes from a newer version of the program;
    /// `error` then tells the user so. A backup is read as a whole or not at all.
    static std::optional<Content> read(const QByteArray &json, QString &error);

    /// Writes the backup to a file that only its owner may read. False when that fails; `error`
    /// then tells why, and a file that was there is as it was.
    static bool save(const QString &path, const Content &content, bool withCredentials,
                     QString &error);
    /// As read(); `error` also tells why a file cannot be read.
    static std::optional<Content> load(const QString &path, QString &error);

    /// A URL with "***" in place of the credentials that it shows by their positions.
    static QString withoutCredentials(const QString &url);
    /// GuideSettings::addresses, each of them so.
    static QString guideAddressesWithoutCredentials(const QString &addresses);
    /// Whether a source is of no use before the credentials that a backup left out are entered.
    static bool lacksCredentials(const SourceConfig &source);
};
