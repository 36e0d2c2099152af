#pragma once

#include "app/main_dialog.h"

#include <QEvent>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <chrono>
#include <deque>
#include <functional>
#include <random>
#include <string>
#include <vector>

class QWidget;
class QWindow;

namespace velko::test {

// What a RandomUser does.
enum class Habit {
    kLooking, // turns pages, changes rooms, opens tools and scrolls: nothing that edits
    kEditing, // everything
};

// Somebody who uses whatever window is in front without aim: the mouse, the keyboard, the menus,
// the window's frame. Each action goes to the window system's queue, so that windows and boxes
// that run event loops of their own are used like the main window. The same seed does the same,
// as far as no timer comes in between.
class RandomUser : public QObject {
public:
    RandomUser(unsigned seed, Habit habit);

    // Acts until `actions` are done or the window is closed, and leaves no other window open.
    void use(MainDialog& window, int actions);
    // Makes use() return soon.
    void stop() { m_left = 0; }

    // Called after each action.
    std::function<void()> onActed;

    // The action that kept the program busy for longest.
    struct Wait {
        std::chrono::milliseconds time{0};
        std::string action;
    };
    const Wait& longestWait() const { return m_longestWait; }
    // The last actions, oldest first.
    std::string lastActions() const;

private:
    using Clock = std::chrono::steady_clock;

    void act();
    void measure();
    void actOnce();
    void lookOnce();
    void editOnce();
    void closeOthers();
    void note(const std::string& action);

    void aim();
    void pressOrRelease();
    void doubleClick();
    void sendMouse(QEvent::Type type, Qt::MouseButton button);
    void moveMouse();
    void turnWheel();
    void scrollPicture();
    void typeKey();
    void sendKey(int key, Qt::KeyboardModifiers modifiers);
    void chooseCommand();
    void turnPage();
    void changeRoom();
    void changeFrame();
    void changeLooks();
    void closeWindow();

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool oneIn(int times) { return below(times) == 0; }
    template <typename Values> auto oneOf(const Values& values)
    {
        return values[m_random() % std::size(values)];
    }
    // The window that takes the user's actions.
    QWidget& front() const;

    std::mt19937 m_random;
    Habit m_habit;
    QPointer<MainDialog> m_window;
    int m_left = 0;
    bool m_scheduled = false;

    QPointer<QWindow> m_aimed; // where the mouse is, and at which point of it
    QPointF m_point;
    Qt::MouseButtons m_held;
    int m_time = 0; // of mouse events, in ms

    Clock::time_point m_before;
    std::string m_action;
    Wait m_longestWait;
    std::deque<std::string> m_actions;
};

} // namespace velko::test
