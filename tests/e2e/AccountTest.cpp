#include "e2e/AccountTest.h"

#include "e2e/StoredSources.h"
#include "support/PrivateProfile.h"

#include <QTest>

void AccountTest::init()
{
    PrivateProfile::current().clear();
    provider = std::make_unique<XtreamProvider>();
    fill();
    storeAccount(*provider);
    session = std::make_unique<PlayerSession>();
    QVERIFY(session->start());
}

void AccountTest::cleanup()
{
    if (!QTest::currentTestFailed())
        QVERIFY(session->close());
    session.reset();
}
