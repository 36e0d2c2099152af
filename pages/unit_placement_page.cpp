#include "pages/unit_placement_page.h"

#include "app/focus_frame.h"
#include "app/line_list.h"
#include "app/room_view_scroller.h"
#include "ui_unit_placement_page.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>
#include <array>
#include <chrono>

namespace velko {

namespace {

constexpr std::chrono::milliseconds kTick{16};

std::array<HexEdit*, 4> numberBoxes(const Ui::UnitPlacementPage& ui)
{
    return {ui.screenXEdit, ui.screenYEdit, ui.pixelXEdit, ui.pixelYEdit};
}

} // namespace

UnitPlacementPage::UnitPlacementPage(EditorState& state, UserPrompt& prompt, QWidget* parent)
    : Page(parent)
    , m_state(state)
    , m_prompt(prompt)
    , m_model(state)
    , m_ui(std::make_unique<Ui::UnitPlacementPage>())
{
    m_ui->setupUi(this);
    const RoomView::Size display = m_model.view().display();
    m_ui->unitView->setPictureSize({display.width, display.height});
    m_ui->vramSetupView->setPictureSize({kVramSetupSize, kVramSetupSize});
    m_units = std::make_unique<LineList>(*m_ui->unitList);
    m_loads = std::make_unique<LineList>(*m_ui->loadList);
    new FocusFrame(*m_ui->unitList);
    new FocusFrame(*m_ui->loadList);
    m_scroller = std::make_unique<RoomViewScroller>(m_model.view(), *m_ui->unitView,
                                                    *m_ui->horizontalBar, *m_ui->verticalBar);
}

UnitPlacementPage::~UnitPlacementPage()
{
    // While the widgets go, a box may lose the focus, which ends its editing.
    for (HexEdit* box : numberBoxes(*m_ui))
        box->disconnect(this);
}

void UnitPlacementPage::setup()
{
    m_ui->typeCombo->setNames(m_state.names.units);
    m_ui->loadIdCombo->setNames(m_state.names.vramLoads);
    m_ui->spriteCheck->setChecked(true);
    m_ui->animateCheck->setChecked(true);
    connectView();
    connectUnits();
    connectStats();
    connectLoads();
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &UnitPlacementPage::tick);
    m_timer.start(kTick);
}

void UnitPlacementPage::refresh()
{
    m_model.refresh();
    m_scroller->showBars();
    showUnits();
    showLoads();
}

void UnitPlacementPage::leave(bool)
{
    m_timer.stop();
}

void UnitPlacementPage::tick()
{
    if (!m_model.tick())
        return;
    m_scroller->showBars();
    showView();
}

void UnitPlacementPage::connectView()
{
    connect(m_ui->unitView, &PictureView::mousePressed, this,
            [this](QPoint point, Qt::MouseButton button) {
                if (button == Qt::LeftButton) {
                    m_model.press({point.x(), point.y()});
                    m_pointerWasInView = true;
                } else if (button == Qt::RightButton) {
                    m_model.revertMove();
                }
                showStats();
                showView();
            });
    m_scroller->connectMoved([this] { showView(); });
    connect(m_ui->spriteCheck, &QCheckBox::clicked, this, [this](bool on) {
        m_model.setSprites(on);
        showView();
    });
    connect(m_ui->animateCheck, &QCheckBox::clicked, this, [this](bool on) {
        m_model.setAnimated(on);
        showView();
    });
    // A unit is moved without a button held, and scrolls the view from outside of it.
    qGuiApp->installEventFilter(this);
}

void UnitPlacementPage::connectUnits()
{
    m_units->connectSelected([this](int line) {
        m_model.selectUnit(line);
        showStats();
        showView();
    });
    connect(m_ui->unitList, &QListView::doubleClicked, this, [this](const QModelIndex& index) {
        m_model.startMoving(index.row());
        m_pointerWasInView = false;
        showStats();
        showView();
    });
    connect(m_ui->newButton, &QPushButton::clicked, this, &UnitPlacementPage::addUnit);
    connect(m_ui->removeButton, &QPushButton::clicked, this, [this] {
        m_model.removeUnit();
        showUnits();
    });
}

void UnitPlacementPage::connectStats()
{
    connect(m_ui->typeCombo, &QComboBox::activated, this, [this](int type) {
        m_model.setType(static_cast<std::uint8_t>(type));
        showUnits();
    });
    connect(m_ui->placedCheck, &QCheckBox::clicked, this, [this](bool placed) {
        m_model.setPlaced(placed);
        showStats();
        showView();
    });
    connectNumber(*m_ui->screenXEdit, &UnitPlacementModel::setScreenX);
    connectNumber(*m_ui->screenYEdit, &UnitPlacementModel::setScreenY);
    connectNumber(*m_ui->pixelXEdit, &UnitPlacementModel::setPixelX);
    connectNumber(*m_ui->pixelYEdit, &UnitPlacementModel::setPixelY);
}

void UnitPlacementPage::connectNumber(HexEdit& box, SetNumber setNumber)
{
    connect(&box, &HexEdit::textEdited, this, [this, &box, setNumber] {
        (m_model.*setNumber)(box.getHex());
        showView();
    });
    // The boxes end up with the bytes that were made of the text.
    connect(&box, &HexEdit::editingFinished, this, &UnitPlacementPage::showStats);
}

void UnitPlacementPage::connectLoads()
{
    m_loads->connectSelected([this](int line) {
        m_model.selectLoad(line);
        showLoadId();
    });
    connect(m_ui->loadIdCombo, &QComboBox::activated, this, [this](int id) {
        m_model.setLoadId(static_cast<std::uint8_t>(id));
        showLoads();
    });
    connect(m_ui->insertButton, &QPushButton::clicked, this, &UnitPlacementPage::insertLoad);
    connect(m_ui->deleteButton, &QPushButton::clicked, this, [this] {
        m_model.deleteLoad();
        showLoads();
    });
}

void UnitPlacementPage::addUnit()
{
    if (m_model.addUnit().ok())
        showUnits();
    else
        m_prompt.showMessage(UnitPlacementModel::noSpaceForUnitText(), MessageIcon::kExclamation);
}

void UnitPlacementPage::insertLoad()
{
    if (m_model.insertLoad().ok())
        showLoads();
    else
        m_prompt.showMessage(UnitPlacementModel::noSpaceForLoadText(), MessageIcon::kExclamation);
}

void UnitPlacementPage::movePointer(QPoint globalPoint)
{
    const PictureView& view = *m_ui->unitView;
    const QPoint point = view.toPicture(view.mapFromGlobal(QPointF(globalPoint)));
    m_pointerWasInView = m_pointerWasInView || view.containsPicturePoint(point);
    if (!m_pointerWasInView && belongsToAnotherControl(globalPoint))
        return;
    m_model.movePointer({point.x(), point.y()});
    showStats();
    showView();
}

// Whether the mouse is over a control of the page, rather than over the page itself.
bool UnitPlacementPage::belongsToAnotherControl(QPoint globalPoint) const
{
    const QWidget* control = childAt(mapFromGlobal(globalPoint));
    return control != nullptr && qobject_cast<const QLabel*>(control) == nullptr
        && qobject_cast<const QGroupBox*>(control) == nullptr;
}

// A move of the mouse comes to the window first, once, then to widgets that follow it.
bool UnitPlacementPage::eventFilter(QObject* watched, QEvent* event)
{
    if (m_model.isMoving()) {
        if (event->type() == QEvent::MouseMove && watched == window()->windowHandle())
            movePointer(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
        // A pointer that rests at the border scrolls the view; its tip would cover that.
        if (event->type() == QEvent::ToolTip)
            return true;
    }
    return Page::eventFilter(watched, event);
}

void UnitPlacementPage::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Escape || !m_model.isMoving()) {
        Page::keyPressEvent(event);
        return;
    }
    m_model.revertMove();
    showStats();
    showView();
}

void UnitPlacementPage::showUnits()
{
    m_units->setLines(m_model.unitLines());
    showStats();
    showView();
}

void UnitPlacementPage::showStats()
{
    const std::optional<UnitRecord> unit = m_model.unit();
    const bool placed = unit && unit->isPlaced();
    m_units->select(m_model.selectedUnit());
    m_ui->typeCombo->setEnabled(unit.has_value());
    m_ui->typeCombo->setCurrentIndex(unit && unit->type < m_ui->typeCombo->count() ? unit->type
                                                                                   : -1);
    m_ui->placedCheck->setEnabled(unit.has_value());
    m_ui->placedCheck->setChecked(placed);
    for (HexEdit* box : numberBoxes(*m_ui)) {
        box->setEnabled(placed);
        if (!placed)
            box->setText();
    }
    if (placed) {
        m_ui->screenXEdit->setHex(unit->column - 1U);
        m_ui->screenYEdit->setHex(unit->screenY);
        m_ui->pixelXEdit->setHex(unit->pixelX);
        m_ui->pixelYEdit->setHex(unit->pixelY);
    }
}

void UnitPlacementPage::showLoads()
{
    m_loads->setLines(m_model.loadLines());
    showLoadId();
    m_model.drawVramSetup(m_ui->vramSetupView->picture());
    m_ui->vramSetupView->showPicture();
    showView();
}

void UnitPlacementPage::showLoadId()
{
    const std::optional<std::uint8_t> id = m_model.loadId();
    m_ui->loadIdCombo->setEnabled(m_model.hasLoads());
    m_ui->loadIdCombo->setCurrentIndex(id ? *id : -1);
    m_loads->select(m_model.selectedLoad());
}

void UnitPlacementPage::showView()
{
    m_model.draw(m_ui->unitView->picture());
    m_ui->unitView->showPicture();
}

} // namespace velko
