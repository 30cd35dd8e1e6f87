#pragma once

#include "e2e/PlayerSession.h"
#include "fakeprovider/XtreamProvider.h"

#include <QObject>

#include <memory>

/// Starts the player for each test function, on a profile with the account of a provider, and
/// closes it after each that passed.
class AccountTest : public QObject
{
    Q_OBJECT

protected:
    /// Adds what the provider offers; the player starts afterwards.
    virtual void fill() = 0;

    std::unique_ptr<XtreamProvider> provider;
    std::unique_ptr<PlayerSession> session;

private Q_SLOTS:
    void init();
    void cleanup();
};
