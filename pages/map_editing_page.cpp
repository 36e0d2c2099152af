#include "pages/map_editing_page.h"

#include "app/focus_frame.h"
#include "app/picture_view.h"
#include "app/text.h"
#include "pages/map_edit_pictures.h"
#include "ui_map_editing_page.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velko {

namespace {

constexpr std::array kModes = {MapEditMode::kTileCombined, MapEditMode::kTile,
                               MapEditMode::kPalette, MapEditMode::kPhysics};

RoomView::Position toPosition(QPoint point)
{
    return {point.x(), point.y()};
}

QSize toQSize(RoomView::Size size)
{
    return {size.width, size.height};
}

// The middle of the cell that an arrow key leads to; at the edges it stays where it is.
RoomView::Position cellBeside(const SelectorGrid& grid, std::uint32_t cell, QPoint direction)
{
    const auto columns = static_cast<int>(grid.columns);
    const auto rows = static_cast<int>(grid.rows);
    const auto index = static_cast<int>(cell);
    const int column = std::clamp(index % columns + direction.x(), 0, columns - 1);
    const int row = std::clamp(index / columns + direction.y(), 0, rows - 1);
    return {(2 * column + 1) * grid.display.width / (2 * columns),
            (2 * row + 1) * grid.display.height / (2 * rows)};
}

} // namespace

MapEditingPage::MapEditingPage(EditorState& state, UserPrompt& prompt, QWidget* parent)
    : Page(parent)
    , m_state(state)
    , m_prompt(prompt)
    , m_model(state, prompt)
    , m_ui(std::make_unique<Ui::MapEditingPage>())
{
    m_ui->setupUi(this);
    m_ui->mapView->setPictureSize(toQSize(m_model.view().display()));
    m_ui->tileSelector->setPictureSize(toQSize(kTileSelector.display));
    m_ui->paletteSelector->setPictureSize(toQSize(kPaletteSelector.display));
    m_ui->physicsSelector->setPictureSize(toQSize(kPhysicsSelector.display));
    new FocusFrame(*m_ui->sharedRoomsList);
    fitTexts();
}

MapEditingPage::~MapEditingPage() = default;

// There is space for the hints of all modes and for a status, so that none of them moves anything
// when it comes.
void MapEditingPage::fitTexts()
{
    m_ui->statusLabel->setMinimumHeight(m_ui->statusLabel->fontMetrics().height());
    QLabel& label = *m_ui->selectHint;
    const QString shown = label.text();
    int width = 0;
    for (const MapEditMode mode : kModes) {
        const MapEditHints& hints = mapEditHints(mode);
        for (const std::string_view hint : {hints.select, hints.modify, hints.copy}) {
            label.setText(toQString(hint));
            width = std::max(width, label.sizeHint().width());
        }
    }
    label.setMinimumWidth(width);
    label.setText(shown);
}

void MapEditingPage::setup()
{
    connectModes();
    connectSelectors();
    connectMap();
    connect(m_ui->convertButton, &QPushButton::clicked, this, [this] {
        m_model.convertAndWrite();
        showMap(); // cells past the list are drawn from the ROM
        showTexts();
    });
    connect(m_ui->heroCheck, &QCheckBox::clicked, this, &MapEditingPage::showMap);
}

void MapEditingPage::connectModes()
{
    const std::array buttons = {m_ui->combinedMode, m_ui->graphicsMode, m_ui->paletteMode,
                                m_ui->physicsMode};
    for (std::size_t i = 0; i < kModes.size(); ++i) {
        connect(buttons[i], &QRadioButton::clicked, this, [this, mode = kModes[i]] {
            m_model.setMode(mode);
            showMode();
        });
    }
}

void MapEditingPage::connectSelectors()
{
    connectSelector(
        *m_ui->tileSelector, kTileSelector, [this] { return m_model.selectedBlock(); },
        [this](Point point) { m_model.selectBlockAt(point); });
    connectSelector(
        *m_ui->paletteSelector, kPaletteSelector, [this] { return m_model.selectedPalette(); },
        [this](Point point) { m_model.selectPaletteAt(point); });
    connectSelector(
        *m_ui->physicsSelector, kPhysicsSelector, [this] { return m_model.selectedPhysics(); },
        [this](Point point) { m_model.selectPhysicsAt(point); });
}

void MapEditingPage::connectSelector(PictureView& view, const SelectorGrid& grid,
                                     const std::function<std::uint32_t()>& selected,
                                     const Act& select)
{
    const Act act = [this, select](Point point) {
        select(point);
        showSelectors();
    };
    connectDrag(view, Qt::LeftButton, act);
    view.connectArrowKeys([grid, selected, act](QPoint direction) {
        const Point beside = cellBeside(grid, selected(), direction);
        if (grid.cellAt(beside) != selected())
            act(beside);
    });
}

void MapEditingPage::connectMap()
{
    PictureView& map = *m_ui->mapView;
    m_scroller = std::make_unique<RoomViewScroller>(m_model.view(), map, *m_ui->mapHorizontalBar,
                                                    *m_ui->mapVerticalBar);
    m_scroller->connectMoved([this] { showMap(); });
    map.setMouseTracking(true); // the hero follows without a button
    connect(&map, &PictureView::mouseMoved, this, &MapEditingPage::moveHero);
    connectDrag(map, Qt::LeftButton, [this](Point point) { paint(point); });
    connectDrag(map, Qt::RightButton, [this](Point point) { pick(point); });
}

void MapEditingPage::connectDrag(PictureView& view, Qt::MouseButton button, const Act& act)
{
    const auto last = std::make_shared<QPoint>();
    connect(&view, &PictureView::mousePressed, this,
            [last, button, act](QPoint point, Qt::MouseButton pressed) {
                *last = point;
                if (pressed == button)
                    act(toPosition(point));
            });
    connect(&view, &PictureView::mouseMoved, this,
            [last, button, act](QPoint point, Qt::MouseButtons held) {
                if (std::exchange(*last, point) != point && held.testFlag(button))
                    act(toPosition(point));
            });
}

void MapEditingPage::refresh()
{
    m_isPaused = false;
    m_model.refresh();
    showRoom();
    if (!m_model.hasMap())
        m_prompt.showMessage(MapEditModel::noMapText());
}

void MapEditingPage::commitEdits()
{
    if (!m_model.isModified())
        return;
    if (m_model.leave()) {
        const RoomView::Position scroll = m_model.view().scroll();
        m_model.refresh();
        m_model.view().scrollTo(scroll);
    }
    showRoom();
}

void MapEditingPage::leave(bool revert)
{
    if (!revert)
        m_model.leave();
}

// The Shift key is told while a tool window is open, too.
void MapEditingPage::pause()
{
    shiftKey(false);
    m_isPaused = true;
}

void MapEditingPage::resume()
{
    m_isPaused = false;
}

void MapEditingPage::shiftKey(bool down)
{
    const bool shows = down && m_ui->heroCheck->isChecked() && !m_isPaused;
    if (std::exchange(m_shiftIsDown, shows) != shows)
        showMap();
}

bool MapEditingPage::event(QEvent* event)
{
    // A key that goes up while another program has the keyboard is never told.
    if (event->type() == QEvent::WindowDeactivate && m_shiftIsDown)
        shiftKey(false);
    else if (event->type() == QEvent::FontChange)
        fitTexts();
    return Page::event(event);
}

void MapEditingPage::paint(Point point)
{
    m_model.applyLeft(point);
    showMap();
    showTexts();
}

void MapEditingPage::pick(Point point)
{
    m_model.applyRight(point);
    showSelectors();
    showTexts();
}

void MapEditingPage::moveHero(QPoint point)
{
    if (!m_model.hasMap() || !m_ui->mapView->containsPicturePoint(point))
        return;
    const auto hero = heroPosition(m_model.view(), toPosition(point));
    if (m_hero == hero)
        return;
    m_hero = hero;
    if (m_shiftIsDown)
        showMap();
}

void MapEditingPage::showRoom()
{
    const bool hasMap = m_model.hasMap();
    for (QWidget* control :
         {static_cast<QWidget*>(m_ui->mapView), static_cast<QWidget*>(m_ui->mapHorizontalBar),
          static_cast<QWidget*>(m_ui->mapVerticalBar), static_cast<QWidget*>(m_ui->tileSelector),
          static_cast<QWidget*>(m_ui->paletteSelector), static_cast<QWidget*>(m_ui->convertButton)})
        control->setEnabled(hasMap);
    m_scroller->showBars();
    m_ui->sharedRoomsList->clear();
    for (const std::string& name : m_model.sharedRoomNames())
        m_ui->sharedRoomsList->addItem(toQString(name));
    showMode();
    showTexts();
}

void MapEditingPage::showMode()
{
    const MapEditHints& hints = mapEditHints(m_model.mode());
    m_ui->selectHint->setText(toQString(hints.select));
    m_ui->modifyHint->setText(toQString(hints.modify));
    m_ui->copyHint->setText(toQString(hints.copy));
    m_ui->physicsSelector->setEnabled(m_model.hasMap() && m_model.mode() == MapEditMode::kPhysics);
    showSelectors();
    showMap();
}

void MapEditingPage::showSelectors()
{
    const auto show = [this](PictureView& view, auto draw) {
        if (m_model.hasMap()) {
            draw(m_state, m_model, view.picture());
            view.showPicture();
        } else {
            view.clearPicture();
        }
    };
    show(*m_ui->tileSelector, drawTileSelector);
    show(*m_ui->paletteSelector, drawPaletteSelector);
    show(*m_ui->physicsSelector, drawPhysicsSelector);
}

void MapEditingPage::showMap()
{
    PictureView& map = *m_ui->mapView;
    if (!m_model.hasMap()) {
        map.clearPicture();
        return;
    }
    const bool showsHero = m_shiftIsDown && m_ui->heroCheck->isChecked();
    drawMapView(m_state, m_model, map.picture(), showsHero ? m_hero : std::nullopt);
    map.showPicture();
}

void MapEditingPage::showTexts()
{
    m_ui->usedBlocksValue->setText(toQString(m_model.usedText()));
    m_ui->statusLabel->setText(toQString(m_model.statusText()));
}

} // namespace velko
