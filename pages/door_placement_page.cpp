#include "pages/door_placement_page.h"

#include "app/room_view_scroller.h"
#include "app/ui_common.h"
#include "ui_door_placement_page.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QMouseEvent>

namespace velko {

namespace {

// The Tab key leads to one button of a group; the arrow keys go on from there.
void setTabStop(const QButtonGroup& group, const QAbstractButton* stop)
{
    for (QAbstractButton* button : group.buttons())
        button->setFocusPolicy(button == stop ? Qt::StrongFocus : Qt::ClickFocus);
}

// Checks button `number`, or none where no button has that number.
void checkOnly(QButtonGroup& group, int number)
{
    QAbstractButton* button = group.button(number);
    if (button != nullptr) {
        button->setChecked(true);
    } else if (QAbstractButton* checked = group.checkedButton()) {
        group.setExclusive(false); // which would keep one checked
        checked->setChecked(false);
        group.setExclusive(true);
    }
    setTabStop(group, button != nullptr ? button : group.button(0));
}

} // namespace

DoorPlacementPage::DoorPlacementPage(EditorState& state, QWidget* parent)
    : Page(parent), m_state(state), m_model(state), m_ui(std::make_unique<Ui::DoorPlacementPage>())
{
    m_ui->setupUi(this);
    m_ui->mapView->setPictureSize({DoorModel::kDisplay.width, DoorModel::kDisplay.height});
    for (QLineEdit* box :
         {m_ui->screenXEdit, m_ui->screenYEdit, m_ui->blockXEdit, m_ui->blockYEdit})
        box->setFixedWidth(box->minimumSizeHint().width()
                           + box->fontMetrics().horizontalAdvance("00"));
    m_entrances = groupOf(
        {m_ui->entranceRadio1, m_ui->entranceRadio2, m_ui->entranceRadio3, m_ui->entranceRadio4});
    m_exits = groupOf({m_ui->exitRadio1, m_ui->exitRadio2, m_ui->exitRadio3, m_ui->exitRadio4});
    m_exitEntrances = groupOf({m_ui->exitEntranceRadio1, m_ui->exitEntranceRadio2,
                               m_ui->exitEntranceRadio3, m_ui->exitEntranceRadio4});
    m_scroller = std::make_unique<RoomViewScroller>(m_model.view(), *m_ui->mapView,
                                                    *m_ui->mapHorizontalBar, *m_ui->mapVerticalBar);
}

DoorPlacementPage::~DoorPlacementPage() = default;

QButtonGroup* DoorPlacementPage::groupOf(const Radios& radios)
{
    auto* group = new QButtonGroup(this);
    for (std::size_t i = 0; i < radios.size(); ++i)
        group->addButton(radios[i], static_cast<int>(i));
    return group;
}

void DoorPlacementPage::setup()
{
    m_ui->exitRoomCombo->setRooms(m_state);
    checkOnly(*m_entrances, static_cast<int>(m_model.selectedEntrance()));
    checkOnly(*m_exits, static_cast<int>(m_model.selectedExit()));
    connectEntrances();
    connectExits();
    connectMap();
}

void DoorPlacementPage::refresh()
{
    m_model.showRoom();
    showEntranceInView();
    showExit();
}

void DoorPlacementPage::connectEntrances()
{
    connect(m_entrances, &QButtonGroup::idClicked, this, [this](int slot) {
        m_model.selectEntrance(static_cast<std::uint32_t>(slot));
        showEntranceInView();
    });
}

void DoorPlacementPage::connectExits()
{
    connect(m_exits, &QButtonGroup::idClicked, this, [this](int slot) {
        m_model.selectExit(static_cast<std::uint32_t>(slot));
        showExit();
    });
    connect(m_ui->exitRoomCombo, &QComboBox::activated, this, [this](int room) {
        m_model.setExitRoom(static_cast<std::uint8_t>(room));
        showExit();
    });
    connect(m_exitEntrances, &QButtonGroup::idClicked, this, [this](int slot) {
        m_model.setExitEntrance(static_cast<std::uint8_t>(slot));
        showExit();
    });
}

void DoorPlacementPage::connectMap()
{
    PictureView& view = *m_ui->mapView;
    connect(&view, &PictureView::mousePressed, this, [this](QPoint point, Qt::MouseButton button) {
        if (button == Qt::LeftButton && m_model.placeEntrance(point.x(), point.y()))
            showPlaced();
    });
    connect(&view, &PictureView::mouseMoved, this, &DoorPlacementPage::moveMouse);
    m_scroller->connectMoved([this] { showMap(); });
    // Before the scroller, which takes every arrow key that reaches the view.
    view.installEventFilter(this);
}

void DoorPlacementPage::moveMouse(QPoint point, Qt::MouseButtons buttons)
{
    if (m_model.moveMouse(point.x(), point.y(), buttons.testFlag(Qt::LeftButton)))
        showPlaced();
}

// A button that went down beside the map places the entrance as soon as the mouse comes onto it.
void DoorPlacementPage::mouseMoveEvent(QMouseEvent* event)
{
    const PictureView& view = *m_ui->mapView;
    const QPointF inView = view.mapFrom(this, event->position());
    // The map may be scrolled out of sight in part.
    const bool visible = view.visibleRegion().contains(inView.toPoint());
    moveMouse(view.toPicture(inView), visible ? event->buttons() : Qt::NoButton);
}

bool DoorPlacementPage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_ui->mapView && event->type() == QEvent::KeyPress
        && moveEntranceByKey(static_cast<QKeyEvent&>(*event)))
        return true;
    return Page::eventFilter(watched, event);
}

bool DoorPlacementPage::moveEntranceByKey(const QKeyEvent& key)
{
    const QPoint direction = arrowDirection(key);
    if (direction.isNull() || !key.modifiers().testFlag(Qt::ShiftModifier))
        return false;
    m_model.moveEntrance(direction.x(), direction.y());
    showEntranceInView();
    return true;
}

void DoorPlacementPage::showEntrance()
{
    const Entrance entrance = m_model.entrance();
    m_ui->screenXEdit->setText(QString::number(entrance.screenColumn));
    m_ui->screenYEdit->setText(QString::number(entrance.screenRow));
    m_ui->blockXEdit->setText(QString::number(entrance.blockColumn));
    m_ui->blockYEdit->setText(QString::number(entrance.blockRow));
}

void DoorPlacementPage::showPlaced()
{
    showEntrance();
    showMap();
}

void DoorPlacementPage::showEntranceInView()
{
    showEntrance();
    m_scroller->showBars();
    showMap();
}

void DoorPlacementPage::showExit()
{
    m_ui->exitRoomCombo->setCurrentIndex(m_model.exitRoom());
    checkOnly(*m_exitEntrances, m_model.exitEntrance());
}

void DoorPlacementPage::showMap()
{
    m_model.draw(m_ui->mapView->picture());
    m_ui->mapView->showPicture();
}

} // namespace velko
