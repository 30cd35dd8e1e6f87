// The window that tst_Desktop drives: one control of each kind. The label at the bottom says what
// happened last.

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int manyRows = 100000;

/// Stands for a video surface: a native window that changes its colour while it plays.
class Picture final : public QWidget
{
public:
    explicit Picture(QWidget *parent)
        : QWidget(parent)
    {
        setAttribute(Qt::WA_NativeWindow);
        setAccessibleName(u"Picture"_s);
        setMinimumSize(200, 120);
        timer.setInterval(40);
        connect(&timer, &QTimer::timeout, this, [this] {
            hue = (hue + 7) % 360;
            update();
        });
    }

    void setPlaying(bool playing)
    {
        black = false;
        playing ? timer.start() : timer.stop();
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).fillRect(rect(), black ? QColor(Qt::black) : QColor::fromHsv(hue, 200, 200));
    }

    void mouseDoubleClickEvent(QMouseEvent *) override
    {
        window()->isFullScreen() ? window()->showNormal() : window()->showFullScreen();
    }

private:
    QTimer timer;
    int hue = 0;
    bool black = true;
};

class ProbeWindow final : public QMainWindow
{
public:
    ProbeWindow()
    {
        setWindowTitle(u"Probe"_s);
        resize(900, 600);
        auto *page = new QWidget(this);
        auto *columns = new QHBoxLayout(page);
        columns->addWidget(makeViews(), 1);
        columns->addLayout(makeControls(), 1);
        setCentralWidget(page);
    }

private:
    void report(const QString &text)
    {
        last->setText(text);
        std::fprintf(stderr, "%s\n", qPrintable(text));
    }

    QLayout *makeControls()
    {
        auto *controls = new QVBoxLayout;
        auto *form = new QFormLayout;
        auto *edit = new QLineEdit;
        connect(edit, &QLineEdit::returnPressed, this,
                [this, edit] { report(u"Entered "_s + edit->text()); });
        form->addRow(u"Name:"_s, edit);
        auto *search = new QLineEdit;
        search->setPlaceholderText(u"Search..."_s);
        form->addRow(search);
        auto *combo = new QComboBox;
        combo->addItems({u"First"_s, u"Second"_s, u"Third"_s});
        connect(combo, &QComboBox::currentTextChanged, this,
                [this](const QString &text) { report(u"Chose "_s + text); });
        form->addRow(u"Choice:"_s, combo);
        auto *slider = new QSlider(Qt::Horizontal);
        slider->setAccessibleName(u"Volume"_s);
        slider->setRange(0, 100);
        form->addRow(slider);
        controls->addLayout(form);

        addButton(controls, u"Play"_s, [this] { picture->setPlaying(true); });
        addButton(controls, u"Pause"_s, [this] { picture->setPlaying(false); });
        addButton(controls, u"Menu"_s, [this] { showMenu(); });
        addButton(controls, u"Dialog"_s, [this] { showDialog(); });
        addButton(controls, u"Warn"_s, [this] {
            QMessageBox::warning(this, u"Warning"_s, u"Something is odd."_s);
            report(u"Warned"_s);
        });
        picture = new Picture(this);
        controls->addWidget(picture, 1);
        last = new QLabel(u"Nothing yet"_s);
        controls->addWidget(last);
        return controls;
    }

    template <typename Action>
    void addButton(QLayout *layout, const QString &text, Action action)
    {
        auto *button = new QPushButton(text);
        connect(button, &QPushButton::clicked, this, action);
        layout->addWidget(button);
    }

    QWidget *makeViews()
    {
        auto *tabs = new QTabWidget;
        auto *table = new QTableWidget(manyRows, 1);
        table->setHorizontalHeaderLabels({u"Channel"_s});
        table->horizontalHeader()->setStretchLastSection(true);
        for (int row = 0; row < manyRows; ++row)
            table->setItem(row, 0, new QTableWidgetItem(u"Channel %1"_s.arg(row)));
        connect(table, &QTableWidget::cellClicked, this,
                [this](int row, int) { report(u"Row %1"_s.arg(row)); });
        tabs->addTab(table, u"Table"_s);

        auto *list = new QListWidget;
        list->addItems({u"All"_s, u"News"_s, u"Sports"_s});
        connect(list, &QListWidget::itemClicked, this,
                [this](QListWidgetItem *item) { report(u"Item "_s + item->text()); });
        tabs->addTab(list, u"List"_s);

        auto *tree = new QTreeWidget;
        tree->setHeaderLabels({u"Episode"_s});
        auto *season = new QTreeWidgetItem(tree, {u"Season 1"_s});
        new QTreeWidgetItem(season, {u"Pilot"_s});
        season->setExpanded(true);
        connect(tree, &QTreeWidget::itemClicked, this,
                [this](QTreeWidgetItem *item) { report(u"Branch "_s + item->text(0)); });
        tabs->addTab(tree, u"Tree"_s);
        return tabs;
    }

    void showMenu()
    {
        QMenu menu(this);
        for (const QString &text : {u"One"_s, u"Two"_s}) {
            QAction *action =
                menu.addAction(text, this, [this, text] { report(u"Menu "_s + text); });
            action->setCheckable(true);
            action->setChecked(text == u"Two"_s);
        }
        menu.addAction(u"Never"_s)->setEnabled(false);
        menu.exec(last->mapToGlobal(QPoint(0, -menu.sizeHint().height())));
    }

    void showDialog()
    {
        QDialog dialog(this);
        dialog.setWindowTitle(u"Question"_s);
        auto *layout = new QVBoxLayout(&dialog);
        auto *text = new QPlainTextEdit(u"Line one\nLine two"_s);
        text->setReadOnly(true);
        layout->addWidget(text);
        auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
        layout->addWidget(buttons);
        report(dialog.exec() == QDialog::Accepted ? u"Accepted"_s : u"Rejected"_s);
    }

    Picture *picture = nullptr;
    QLabel *last = nullptr;
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    ProbeWindow window;
    window.show();
    return QApplication::exec() == 0 ? 3 : 1;
}
