#include "support/TestMain.h"
#include "ui/ActivateKeys.h"

#include <QBoxLayout>
#include <QLineEdit>

using namespace Qt::StringLiterals;

class tst_ActivateKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyReturnAndEnterRunTheAction();
};

void tst_ActivateKeys::onlyReturnAndEnterRunTheAction()
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *form = new QWidget;
    auto *child = new QLineEdit;
    auto *sibling = new QLineEdit;
    (new QVBoxLayout(form))->addWidget(child);
    layout->addWidget(form);
    layout->addWidget(sibling);
    int runs = 0;
    auto context = std::make_unique<QObject>();
    addActivateKeyShortcuts(form, context.get(), [&runs] { ++runs; });
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    const auto press = [&runs](QWidget *widget, Qt::Key key) {
        const int before = runs;
        widget->setFocus();
        QTest::keyClick(widget, key);
        return runs - before;
    };
    QCOMPARE(press(child, Qt::Key_Return), 1);
    QCOMPARE(press(child, Qt::Key_Enter), 1);
    QCOMPARE(press(child, Qt::Key_A), 0);
    QCOMPARE(press(sibling, Qt::Key_Return), 0);
    context.reset();
    QCOMPARE(press(child, Qt::Key_Return), 0);
}

VANTIRO_TEST_MAIN(tst_ActivateKeys)
#include "tst_ActivateKeys.moc"
