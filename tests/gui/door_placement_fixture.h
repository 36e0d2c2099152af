#pragma once

#include "pages/door_placement_page.h"

#include "app/picture_view.h"
#include "tests/gui/page_support.h"
#include "tests/gui/picture_events.h"
#include "tests/pages/door_rom.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QWindow>
#include <memory>

namespace velko::test::door_placement {

// The template's numbers of the controls.
inline constexpr int kEntrances[] = {1092, 1094, 1093, 1095};
inline constexpr int kExits[] = {1103, 1104, 1105, 1106};
inline constexpr int kExitEntrances[] = {1099, 1100, 1101, 1102};
inline constexpr int kFields[] = {1107, 1108, 1096, 1098};

// A page on the large room. Its entrance 1 stands at (64, 80), 2 at (640, 352), 3 is not set, 4
// stands far outside; exit 1 leads to entrance 2 of room 4, exit 4 to what does not exist.
class DoorPlacementPageTest : public DoorTest {
protected:
    DoorPlacementPageTest()
    {
        setEntrance(kLarge, 0, 0x10, 0x45);
        setEntrance(kLarge, 1, 0x31, 0x87);
        setEntrance(kLarge, 2, 0x0F, 0x21);
        setEntrance(kLarge, 3, 0xFF, 0xFF);
        setEntrance(kWide, 1, 0x40, 0xAD);
        setExit(kLarge, 0, 4, 1);
        setExit(kLarge, 3, 200, 77);
        setExit(kWide, 1, 2, 3);
        state.names.rooms = {"Gate", "Hut", "Plain", "Void", "Road"}; // the sixth has no name
        load();
        open();
    }
    void open()
    {
        page = std::make_unique<DoorPlacementPage>(state);
        showPage(*page, {1000, 620});
    }

    template <typename Widget = QWidget> Widget& control(int id) const
    {
        return controlOf<Widget>(*page, id);
    }
    PictureView& map() const { return control<PictureView>(1109); }
    QScrollBar& horizontalBar() const { return control<QScrollBar>(1110); }
    QScrollBar& verticalBar() const { return control<QScrollBar>(1111); }
    QComboBox& room() const { return control<QComboBox>(1097); }
    Pixel pixel(std::uint32_t x, std::uint32_t y) const { return map().picture().at(x, y); }

    void clickRadio(int id) const { clickMark(control<QRadioButton>(id)); }
    void clickMap(int x, int y, Qt::MouseButton button = Qt::LeftButton) const
    {
        clickPicture(map(), {x, y}, button);
    }
    void moveMouse(int x, int y, Qt::MouseButtons buttons) const
    {
        moveOverPicture(map(), {x, y}, buttons);
    }
    // Of the mouse, wherever the button went down.
    void moveInWindow(QPoint point, Qt::MouseButtons buttons) const
    {
        QMouseEvent move(QEvent::MouseMove, point, point, page->mapToGlobal(QPointF(point)),
                         Qt::NoButton, buttons, {});
        QApplication::sendEvent(page->windowHandle(), &move);
    }
    void changeRoom(std::uint8_t number)
    {
        state.graphics.selectRoom(number);
        page->refresh();
    }
    void expectFields(const char* screenX, const char* screenY, const char* x, const char* y) const
    {
        const char* expected[] = {screenX, screenY, x, y};
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(control<QLineEdit>(kFields[i]).text(), expected[i]) << "field " << i;
    }
    // Which of four radio buttons is checked, from 0; -1 for none.
    int checkedOf(const int (&ids)[4]) const
    {
        int found = -1;
        for (int i = 0; i < 4; ++i) {
            if (!control<QRadioButton>(ids[i]).isChecked())
                continue;
            EXPECT_EQ(found, -1) << "two are checked";
            found = i;
        }
        return found;
    }
    // What both bars and the room's pixels tell.
    void expectScroll(int x, int y)
    {
        EXPECT_EQ(horizontalBar().value(), x);
        EXPECT_EQ(verticalBar().value(), y);
        DoorModel model(state);
        model.showRoom();
        model.view().scrollTo({x, y});
        PixelImage expected;
        model.draw(expected);
        EXPECT_TRUE(map().picture() == expected);
    }

    std::unique_ptr<DoorPlacementPage> page;
};

} // namespace velko::test::door_placement
