#pragma once

#include <QJsonDocument>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <optional>

/// What an account's own summary tells: the reply to a request without an action. What the provider
/// leaves out, or writes in a way that nobody understands, is missing.
struct AccountInformation
{
    QString status; ///< as the provider writes it, for instance "Active"; empty when missing
    /// Seconds since the epoch; none for an account that does not expire.
    std::optional<qint64> expiresAt;
    std::optional<bool> isTrial;
    std::optional<qint64> connectionsInUse;
    std::optional<qint64> connectionsAllowed;
    QStringList formats;
    QString timeZone; ///< of the server, as it writes it

    bool operator==(const AccountInformation &) const = default;
};

/// Reads the summary. Numbers and flags may be texts, and lists objects or one text. Nothing when
/// the reply is no summary, or when the server refuses the account.
std::optional<AccountInformation> readAccountInformation(const QJsonDocument &reply);
