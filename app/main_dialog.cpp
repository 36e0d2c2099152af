#include "app/main_dialog.h"

#include "app/icons.h"
#include "app/system_menu.h"
#include "app/text.h"
#include "ui_main_dialog.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabBar>
#include <QToolTip>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace velko {

namespace {

// The window's size on the grid of its template, where 4 units are the width of an average
// letter and 8 the height of a line.
constexpr QSize kTemplateSize(631, 378);

QSize fromDialogUnits(QSize units, const QFontMetrics& font)
{
    return {units.width() * font.averageCharWidth() / 4, units.height() * font.height() / 8};
}

} // namespace

MainDialog::MainDialog(EditorState& state, UserPrompt& prompt, WindowTable windows, QWidget* parent)
    : QMainWindow(parent)
    , m_state(state)
    , m_prompt(prompt)
    , m_windows(std::move(windows))
    , m_ui(std::make_unique<Ui::MainDialog>())
{
    m_ui->setupUi(this);
    openMainWindow();
}

// Closing asks nothing and saves nothing, so the page just goes, without leave().
MainDialog::~MainDialog()
{
    // A window that goes while it shows is hidden first, which ends the change of a held arrow.
    m_ui->roomSpin->disconnect(this);
}

void MainDialog::openMainWindow()
{
    setWindowIcon(pixelIcon(":/icons/velko.xpm"));
    addToSystemMenu(*this);
    buildTabs();
    showPage(0);
    fillRoomChooser();
    hideButtons();
    connectControls();
    connectCommands();
    connectTools();
    connectTabKeys();
    setInitialSize();
}

void MainDialog::buildTabs()
{
    m_pageArea = new QScrollArea(this);
    m_pageArea->setObjectName("pageArea");
    m_pageArea->setWidgetResizable(true);
    m_pageArea->setFrameShape(QFrame::NoFrame);
    m_pageArea->setFocusPolicy(Qt::NoFocus);

    const QIcon icon = pixelIcon(":/icons/tab.xpm");
    for (const PageEntry& entry : m_windows.pages) {
        auto* tab = new QWidget;
        tab->setAutoFillBackground(true); // in the colour that pictures use for their background
        auto* layout = new QVBoxLayout(tab);
        layout->setContentsMargins(5, 5, 5, 5);
        m_ui->pageTabs->addTab(tab, icon, entry.tabText);
    }
}

void MainDialog::fillRoomChooser()
{
    RoomCombo& combo = *m_ui->roomCombo;
    combo.setFont(m_fonts.font2);
    combo.setRooms(m_state);
    combo.setCurrentIndex(m_state.currentRoom());
    m_ui->roomSpin->setRange(0, combo.count() - 1);
    m_ui->roomSpin->setPosition(0);
}

// The buttons are part of the window's template, but their commands are used from the menus.
void MainDialog::hideButtons()
{
    for (QPushButton* button : {m_ui->saveButton, m_ui->roomSelectorButton,
                                m_ui->mainMapEditorButton, m_ui->areaEditorButton, m_ui->okButton})
        button->hide();
}

void MainDialog::connectControls()
{
    connect(m_ui->pageTabs, &QTabWidget::currentChanged, this, &MainDialog::showPage);
    connect(m_ui->roomCombo, &QComboBox::activated, this, [this](int room) {
        m_ui->roomSpin->setPosition(room);
        if (room != m_state.currentRoom())
            changeRoom(static_cast<std::uint32_t>(room));
    });
    connect(m_ui->roomSpin, &ArrowSpin::changeEnded, this, [this](int room) {
        QToolTip::hideText();
        chooseRoom(static_cast<std::uint32_t>(room));
    });
    // The room is shown when the arrow is let go; until then its name tells where one is.
    connect(m_ui->roomSpin, &ArrowSpin::positionChanged, this, [this](int room) {
        QToolTip::showText(m_ui->roomSpin->mapToGlobal(m_ui->roomSpin->rect().bottomRight()),
                           m_ui->roomCombo->itemText(room).toHtmlEscaped(), m_ui->roomSpin);
    });
    qApp->installEventFilter(this);
}

void MainDialog::connectCommands()
{
    connect(m_ui->openRomAction, &QAction::triggered, this, &MainDialog::openRomRequested);
    connect(m_ui->revertAction, &QAction::triggered, this, &MainDialog::revertRequested);
    connect(m_ui->saveAction, &QAction::triggered, this, &MainDialog::saveRequested);
    connect(m_ui->saveButton, &QPushButton::clicked, this, &MainDialog::saveRequested);
    connect(m_ui->saveAsAction, &QAction::triggered, this, &MainDialog::saveAsRequested);
    connect(m_ui->exitAction, &QAction::triggered, this, &QWidget::close);
}

void MainDialog::connectTools()
{
    const auto connectTool = [this](QAction* action, QPushButton* button, bool exists, auto open) {
        action->setEnabled(exists);
        button->setEnabled(exists);
        connect(action, &QAction::triggered, this, open);
        connect(button, &QPushButton::clicked, action, &QAction::trigger);
    };
    const ToolTable& tools = m_windows.tools;
    connectTool(m_ui->roomSelectorAction, m_ui->roomSelectorButton, bool(tools.roomSelector),
                [this] { openRoomSelector(); });
    connectTool(m_ui->areaEditorAction, m_ui->areaEditorButton, bool(tools.areaEditor),
                [this] { m_windows.tools.areaEditor(context(), this); });
    connectTool(m_ui->mainMapEditorAction, m_ui->mainMapEditorButton, bool(tools.mainMapEditor),
                [this] { openMainMapEditor(); });
}

// Ctrl+Tab, Ctrl+Page Down and their counterparts turn the pages wherever the focus is.
void MainDialog::connectTabKeys()
{
    const auto turn = [this](std::initializer_list<QKeySequence> keys, int step) {
        for (const QKeySequence& key : keys) {
            auto* shortcut = new QShortcut(key, this);
            connect(shortcut, &QShortcut::activated, this, [this, step] {
                QTabWidget& tabs = *m_ui->pageTabs;
                tabs.setCurrentIndex((tabs.currentIndex() + step + tabs.count()) % tabs.count());
            });
        }
    };
    turn({Qt::CTRL | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageDown}, 1);
    turn({Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab,
          Qt::CTRL | Qt::Key_PageUp},
         -1);
}

// The template's size, but wide enough for all tabs, as far as the screen allows.
void MainDialog::setInitialSize()
{
    const QMargins margins = m_ui->centralLayout->contentsMargins();
    const int tabsWidth = m_ui->pageTabs->tabBar()->sizeHint().width() + margins.left()
        + margins.right() + 2 * style()->pixelMetric(QStyle::PM_TabBarBaseOverlap);
    const QSize wanted = fromDialogUnits(kTemplateSize, fontMetrics())
                             .expandedTo({tabsWidth, 0})
                             .expandedTo(sizeHint())
        + QSize(0, menuBar()->sizeHint().height());
    resize(wanted.boundedTo(screen()->availableSize() * 0.95));
}

int MainDialog::selectedTab() const
{
    return m_ui->pageTabs->currentIndex();
}

void MainDialog::destroyPage(bool revert)
{
    if (m_page == nullptr)
        return;
    m_page->leave(revert);
    delete m_pageArea->takeWidget();
    m_page = nullptr;
}

void MainDialog::showPage(int index)
{
    // The old page stays in sight while it asks what to do with its changes.
    QWidget* tab = m_ui->pageTabs->widget(index);
    if (tab != nullptr) {
        tab->layout()->addWidget(m_pageArea);
        m_pageArea->show();
    }
    destroyPage(false);
    if (tab == nullptr)
        return;
    const auto& make = m_windows.pages[static_cast<std::size_t>(index)].make;
    Page* page = make(context(), m_pageArea->viewport());
    page->resize(m_pageArea->viewport()->size());
    page->setup();
    m_page = page;
    m_pageIndex = index;
    m_pageArea->setWidget(page);
    page->show();
    // Last: what it may have to tell is told over the page, not over an empty tab.
    page->refresh();
}

void MainDialog::commitEdits()
{
    if (m_page != nullptr)
        m_page->commitEdits();
}

void MainDialog::setCaption(std::string_view caption)
{
    setWindowTitle(titleText(caption));
}

void MainDialog::changeRoom(std::uint32_t room)
{
    commitEdits();
    m_state.graphics.selectRoom(static_cast<std::uint8_t>(room));
    if (m_page != nullptr)
        m_page->refresh();
}

void MainDialog::chooseRoom(std::uint32_t room)
{
    m_ui->roomSpin->setPosition(static_cast<int>(room));
    m_ui->roomCombo->setCurrentIndex(static_cast<int>(room));
    changeRoom(room);
}

void MainDialog::openRoomSelector()
{
    commitEdits();
    if (m_page != nullptr)
        m_page->pause();
    chooseRoom(m_windows.tools.roomSelector(context(), this, m_state.currentRoom()));
}

void MainDialog::openMainMapEditor()
{
    if (m_page != nullptr)
        m_page->pause();
    m_windows.tools.mainMapEditor(context(), this);
    if (m_page != nullptr)
        m_page->resume();
}

// Tells the page of every Shift key, wherever the focus is. The keys go their way all the same.
bool MainDialog::eventFilter(QObject* watched, QEvent* event)
{
    const bool down = event->type() == QEvent::KeyPress;
    // A key comes to a window of the window system first, once, then to widgets.
    if ((down || event->type() == QEvent::KeyRelease) && watched->isWindowType()
        && m_page != nullptr && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Shift)
        m_page->shiftKey(down);
    return QMainWindow::eventFilter(watched, event);
}

} // namespace velko
