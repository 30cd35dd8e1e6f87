#include "support/TestMain.h"
#include "ui/ActivateKeys.h"

#include <QBoxLayout>
#include <QLineEdit>

using namespace Qt::StringLiterals;

class tst_ActivateKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keys_data();
    void keys();
    void theActionEndsWithItsContext();
};

void tst_ActivateKeys::keys_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("runs");
    QTest::newRow("Return") << Qt::Key_Return << 1;
    QTest::newRow("Enter of the number pad") << Qt::Key_Enter << 1;
    QTest::newRow("another key") << Qt::Key_A << 0;
}

void tst_ActivateKeys::keys()
{
    QFETCH(Qt::Key, key);
    QFETCH(int, runs);
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *form = new QWidget;
    auto *formLayout = new QVBoxLayout(form);
    auto *child = new QLineEdit;
    formLayout->addWidget(child);
    auto *sibling = new QLineEdit;
    layout->addWidget(form);
    layout->addWidget(sibling);
    form->setFocusPolicy(Qt::StrongFocus);
    int count = 0;
    addActivateKeyShortcuts(form, this, [&count] { ++count; });
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    for (QWidget *focused : {form, static_cast<QWidget *>(child)}) {
        count = 0;
        focused->setFocus();
        QTest::keyClick(focused, key);
        QCOMPARE(count, runs);
    }
    sibling->setFocus();
    QTest::keyClick(sibling, key);
    QCOMPARE(count, runs);
}

void tst_ActivateKeys::theActionEndsWithItsContext()
{
    QLineEdit field;
    int count = 0;
    {
        QObject context;
        addActivateKeyShortcuts(&field, &context, [&count] { ++count; });
    }
    field.show();
    QVERIFY(QTest::qWaitForWindowActive(&field));
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(count, 0);
}

VANTIRO_TEST_MAIN(tst_ActivateKeys)
#include "tst_ActivateKeys.moc"
