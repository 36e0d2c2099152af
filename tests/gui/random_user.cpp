#include "tests/gui/random_user.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextStream>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <array>

// What the toolkit's own test library feeds the queue of window system events with.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button,
                                      QEvent::Type type, Qt::KeyboardModifiers modifiers, int time);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key,
                                    Qt::KeyboardModifiers modifiers, const QString& text,
                                    bool autoRepeat, ushort count);

namespace velko::test {

namespace {

constexpr std::size_t kNotedActions = 60;

constexpr std::array kKeys = {
    Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Left,      Qt::Key_Right, Qt::Key_Up,
    Qt::Key_Down,   Qt::Key_PageUp,  Qt::Key_PageDown,  Qt::Key_Home,  Qt::Key_End,
    Qt::Key_Delete, Qt::Key_Insert,  Qt::Key_Backspace, Qt::Key_Space, Qt::Key_Return,
    Qt::Key_Escape, Qt::Key_Shift,   Qt::Key_Control,   Qt::Key_Alt,   Qt::Key_Menu,
    Qt::Key_F1,     Qt::Key_F2,      Qt::Key_F4,        Qt::Key_F5,    Qt::Key_F10};

QString textOf(int key, Qt::KeyboardModifiers modifiers)
{
    if (key < Qt::Key_Space || key > Qt::Key_Z || modifiers.testFlag(Qt::ControlModifier))
        return {};
    const QString text(QChar(static_cast<char16_t>(key)));
    return modifiers.testFlag(Qt::ShiftModifier) ? text : text.toLower();
}

std::string nameOf(const QWidget& widget)
{
    return std::string(widget.metaObject()->className()) + " " + widget.objectName().toStdString();
}

} // namespace

RandomUser::RandomUser(unsigned seed, Habit habit) : m_random(seed), m_habit(habit) { }

void RandomUser::use(MainDialog& window, int actions)
{
    m_window = &window;
    m_left = actions;
    m_action.clear();
    act();
    while (m_scheduled)
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    m_window.clear();
}

std::string RandomUser::lastActions() const
{
    std::string text;
    for (const std::string& action : m_actions)
        text += action + "\n";
    return text;
}

// The next action is on its way before this one is done: if this one opens a window that waits,
// the next one goes there.
void RandomUser::act()
{
    m_scheduled = false;
    measure();
    if (onActed)
        onActed();
    const bool over = m_left <= 0 || m_window == nullptr || !m_window->isVisible();
    const bool othersOpen = QApplication::activeModalWidget() != nullptr
        || QApplication::activePopupWidget() != nullptr;
    if (over && !othersOpen && !m_held)
        return;
    m_scheduled = true;
    QTimer::singleShot(0, this, &RandomUser::act);
    m_before = Clock::now();
    if (over) {
        closeOthers();
    } else {
        --m_left;
        actOnce();
    }
}

void RandomUser::measure()
{
    if (m_action.empty())
        return;
    const auto time =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_before);
    if (time > m_longestWait.time)
        m_longestWait = {time, m_action};
}

void RandomUser::note(const std::string& action)
{
    m_action = action;
    m_actions.push_back(action);
    if (m_actions.size() > kNotedActions)
        m_actions.pop_front();
    static const QString log = qEnvironmentVariable("VELKO_RANDOM_USE_LOG");
    if (log.isEmpty())
        return;
    QFile file(log);
    if (file.open(QIODevice::Append))
        QTextStream(&file) << QString::fromStdString(action) << '\n';
}

QWidget& RandomUser::front() const
{
    if (QWidget* popup = QApplication::activePopupWidget())
        return *popup;
    if (QWidget* modal = QApplication::activeModalWidget())
        return *modal;
    return *m_window;
}

void RandomUser::closeOthers()
{
    note("close what is open");
    if (m_held) {
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            if (m_held.testFlag(button))
                sendMouse(QEvent::MouseButtonRelease, button);
        }
        m_held = {};
        return;
    }
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
        return;
    }
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr)
        return;
    // A box may insist on one of its buttons.
    if (modal->inherits("QMessageBox")) {
        if (auto* button = modal->findChild<QAbstractButton*>())
            button->click();
    } else {
        modal->close();
    }
}

void RandomUser::actOnce()
{
    if (m_habit == Habit::kLooking)
        lookOnce();
    else
        editOnce();
}

void RandomUser::lookOnce()
{
    switch (below(12)) {
    case 0:
        return turnPage();
    case 1:
        return changeRoom();
    case 2:
        return chooseCommand();
    case 3:
        return oneIn(3) ? changeFrame() : moveMouse();
    case 4:
        return oneIn(12) ? changeLooks() : moveMouse();
    case 5:
        return sendKey(Qt::Key_Escape, {});
    case 6:
    case 7:
        return scrollPicture();
    default:
        aim();
        return moveMouse();
    }
}

void RandomUser::editOnce()
{
    const int what = below(1000);
    if (m_held && what < 500)
        return oneIn(3) ? pressOrRelease() : moveMouse();
    if (what < 420) {
        aim();
        pressOrRelease();
    } else if (what < 480) {
        doubleClick();
    } else if (what < 560) {
        if (oneIn(2))
            aim();
        moveMouse();
    } else if (what < 640) {
        aim();
        turnWheel();
    } else if (what < 860) {
        typeKey();
    } else if (what < 890) {
        turnPage();
    } else if (what < 930) {
        changeRoom();
    } else if (what < 955) {
        chooseCommand();
    } else if (what < 985) {
        changeFrame();
    } else if (what < 989) {
        changeLooks();
    } else {
        closeWindow();
    }
}

// Some point of some control that shows; now and then beside all of them.
void RandomUser::aim()
{
    QWidget* window = &front();
    if (oneIn(50)) // what is blocked must stand it, too
        window = m_window;
    std::vector<QWidget*> controls;
    for (QWidget* control : window->findChildren<QWidget*>()) {
        if (control->isVisible() && control->window() == window && !control->size().isEmpty())
            controls.push_back(control);
    }
    QWidget& control = controls.empty() ? *window : *oneOf(controls);
    const int slack = oneIn(10) ? 60 : 0;
    const QPoint point(below(control.width() + 2 * slack + 1) - slack,
                       below(control.height() + 2 * slack + 1) - slack);
    m_aimed = window->windowHandle();
    m_point = control.mapTo(window, point);
}

void RandomUser::sendMouse(QEvent::Type type, Qt::MouseButton button)
{
    if (m_aimed == nullptr)
        return;
    m_time += below(300) + 1;
    if (type == QEvent::MouseButtonPress)
        m_held |= button;
    else if (type == QEvent::MouseButtonRelease)
        m_held &= ~Qt::MouseButtons(button);
    qt_handleMouseEvent(m_aimed, m_point, m_aimed->mapToGlobal(m_point), m_held, button, type,
                        oneIn(10) ? Qt::ShiftModifier : Qt::NoModifier, m_time);
}

void RandomUser::pressOrRelease()
{
    if (m_held && m_aimed == nullptr)
        m_held = {};
    note("mouse at " + std::to_string(m_point.x()) + ", " + std::to_string(m_point.y()) + " of "
         + nameOf(front()));
    const auto button = std::array{Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton,
                                   Qt::MiddleButton}[m_random() % 5];
    if (m_held.testFlag(button))
        return sendMouse(QEvent::MouseButtonRelease, button);
    sendMouse(QEvent::MouseButtonPress, button);
    if (!oneIn(4))
        sendMouse(QEvent::MouseButtonRelease, button);
}

void RandomUser::doubleClick()
{
    aim();
    note("double click in " + nameOf(front()));
    for (int i = 0; i < 2; ++i) {
        m_time -= 290;
        sendMouse(QEvent::MouseButtonPress, Qt::LeftButton);
        sendMouse(QEvent::MouseButtonRelease, Qt::LeftButton);
    }
    m_time += 600;
}

void RandomUser::moveMouse()
{
    note("mouse move in " + nameOf(front()));
    const int reach = oneIn(5) ? 900 : 40;
    m_point += QPointF(below(2 * reach + 1) - reach, below(2 * reach + 1) - reach);
    sendMouse(QEvent::MouseMove, Qt::NoButton);
}

void RandomUser::turnWheel()
{
    if (m_aimed == nullptr)
        return;
    const int turn = oneOf(std::array{120, -120, 15, -15, 1200, -1200, 0});
    note("wheel by " + std::to_string(turn) + " in " + nameOf(front()));
    const QPoint angle = oneIn(4) ? QPoint(turn, 0) : QPoint(0, turn);
    QCoreApplication::postEvent(m_aimed,
                                new QWheelEvent(m_point, m_aimed->mapToGlobal(m_point), {}, angle,
                                                m_held, {}, Qt::NoScrollPhase, false));
}

// Other scroll bars than those of pictures change numbers.
void RandomUser::scrollPicture()
{
    static const QRegularExpression pictureBar("(horizontal|vertical)Bar$",
                                               QRegularExpression::CaseInsensitiveOption);
    for (QScrollBar* bar : front().findChildren<QScrollBar*>(pictureBar)) {
        if (!bar->visibleRegion().contains(bar->rect().center()) || oneIn(2))
            continue;
        m_aimed = bar->window()->windowHandle();
        m_point = bar->mapTo(bar->window(), bar->rect().center());
        return turnWheel();
    }
}

void RandomUser::typeKey()
{
    const int kind = below(10);
    const int key = kind < 6 ? int{oneOf(kKeys)} : '0' + below(kind < 9 ? 10 : 'Z' - '0' + 1);
    Qt::KeyboardModifiers modifiers;
    if (oneIn(4))
        modifiers = oneOf(std::array<Qt::KeyboardModifier, 4>{
            Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier, Qt::NoModifier});
    sendKey(key, modifiers);
}

void RandomUser::sendKey(int key, Qt::KeyboardModifiers modifiers)
{
    note("key " + std::to_string(key) + " in " + nameOf(front()));
    QWindow* window = QGuiApplication::focusWindow();
    if (window == nullptr)
        window = front().windowHandle();
    if (window == nullptr)
        return;
    const QString text = textOf(key, modifiers);
    qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text, oneIn(8), 1);
    if (!oneIn(12))
        qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, text, false, 1);
}

void RandomUser::chooseCommand()
{
    if (&front() != m_window)
        return;
    std::vector<QAction*> commands;
    for (QAction* menu : m_window->menuBar()->actions()) {
        for (QAction* command :
             menu->menu() != nullptr ? menu->menu()->actions() : QList<QAction*>())
            commands.push_back(command);
    }
    QAction* command = oneOf(commands);
    const QString name = command->objectName();
    if (name == "exitAction" && !oneIn(10))
        return;
    if (m_habit == Habit::kLooking && !name.contains("Selector") && !name.contains("Editor"))
        return;
    note("command " + name.toStdString());
    command->trigger();
}

void RandomUser::turnPage()
{
    if (&front() != m_window)
        return;
    auto* tabs = m_window->findChild<QTabWidget*>();
    const int page = below(tabs->count());
    note("page " + std::to_string(page));
    tabs->setCurrentIndex(page);
}

void RandomUser::changeRoom()
{
    auto* rooms = m_window->findChild<QComboBox*>("roomCombo");
    if (&front() != m_window || rooms->count() == 0)
        return;
    const int room = below(rooms->count());
    note("room " + std::to_string(room));
    m_window->chooseRoom(static_cast<std::uint32_t>(room));
}

void RandomUser::changeFrame()
{
    QWidget& window = front();
    note("frame of " + nameOf(window));
    if (window.windowType() == Qt::Popup)
        return;
    switch (below(6)) {
    case 0:
        return window.resize(1, 1);
    case 1:
        return window.resize(2500, 2000);
    case 2:
        return window.showMaximized();
    case 3:
        return window.showNormal();
    default:
        return window.resize(below(1400) + 1, below(1000) + 1);
    }
}

void RandomUser::changeLooks()
{
    switch (below(4)) {
    case 0: {
        QFont font = QApplication::font();
        font.setPointSize(oneOf(std::array{4, 7, 9, 9, 14, 30}));
        note("font of " + std::to_string(font.pointSize()));
        return QApplication::setFont(font);
    }
    case 1:
        note("palette");
        return QApplication::setPalette(oneIn(2) ? QPalette(Qt::black) : QPalette(Qt::lightGray));
    case 2:
        note("style");
        QApplication::setStyle(oneIn(2) ? "windows" : "fusion");
        return;
    default:
        note("direction");
        return QApplication::setLayoutDirection(oneIn(2) ? Qt::RightToLeft : Qt::LeftToRight);
    }
}

void RandomUser::closeWindow()
{
    QWidget& window = front();
    if (&window == m_window && !oneIn(10))
        return;
    note("close " + nameOf(window));
    window.close();
}

} // namespace velko::test
