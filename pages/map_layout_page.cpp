#include "pages/map_layout_page.h"

#include "app/focus_frame.h"
#include "app/scroll_rule.h"
#include "app/text.h"
#include "app/ui_common.h"
#include "gfx/room_renderer.h"
#include "pages/screen_list.h"
#include "ui_map_layout_page.h"

#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

namespace velko {

namespace {

constexpr int kGridStep = 16; // pixels

std::uint32_t stepped(std::uint32_t index, int step)
{
    return static_cast<std::uint32_t>(std::max(static_cast<int>(index) + step, 0));
}

} // namespace

MapLayoutPage::MapLayoutPage(EditorState& state, UserPrompt& prompt, QWidget* parent)
    : Page(parent)
    , m_state(state)
    , m_prompt(prompt)
    , m_model(state)
    , m_grid(state, m_model)
    , m_ui(std::make_unique<Ui::MapLayoutPage>())
{
    m_ui->setupUi(this);
    m_ui->screenList->setModel(&m_lines);
    new FocusFrame(*m_ui->screenList);
    m_ui->screenView->setPictureSize({kScreenWidth, kScreenHeight});
}

MapLayoutPage::~MapLayoutPage() = default;

void MapLayoutPage::setup()
{
    connectButtons();
    connectGrid();
    connectList();
}

void MapLayoutPage::refresh()
{
    showRoom();
    if (m_model.hasMap() && m_model.partnerSizeDiffers()
        && m_prompt.askYesNoCancel(MapLayoutModel::partnerQuestion()) == YesNoCancel::kYes) {
        m_model.takePartnerSize();
        showRoom();
    }
    if (!m_model.hasMap())
        m_prompt.showMessage(MapLayoutModel::noMapText());
}

void MapLayoutPage::connectButtons()
{
    const auto connectResize = [this](QPushButton* button, auto change) {
        connect(button, &QPushButton::clicked, this, [this, change] { resizeMap(change); });
    };
    connectResize(m_ui->growHeightButton, &MapLayoutModel::growHeight);
    connectResize(m_ui->shrinkHeightButton, &MapLayoutModel::shrinkHeight);
    connectResize(m_ui->growWidthButton, &MapLayoutModel::growWidth);
    connectResize(m_ui->shrinkWidthButton, &MapLayoutModel::shrinkWidth);

    const auto connectMove = [this](QToolButton* button, int rows, int columns) {
        connect(button, &QToolButton::clicked, this,
                [this, rows, columns] { moveMap(rows, columns); });
    };
    connectMove(m_ui->moveUpButton, -1, 0);
    connectMove(m_ui->moveDownButton, 1, 0);
    connectMove(m_ui->moveLeftButton, 0, -1);
    connectMove(m_ui->moveRightButton, 0, 1);
}

void MapLayoutPage::connectGrid()
{
    PictureView& view = *m_ui->gridView;
    connect(&view, &PictureView::mousePressed, this, [this](QPoint point, Qt::MouseButton button) {
        if (button == Qt::LeftButton)
            selectCellAt(point);
    });
    connect(&view, &PictureView::mouseMoved, this, [this](QPoint point, Qt::MouseButtons buttons) {
        if (buttons.testFlag(Qt::LeftButton))
            selectCellAt(point);
    });
    view.connectArrowKeys([this](QPoint direction) { moveSelection(direction); });
    connectScrollBar(*m_ui->gridHorizontalBar, kGridStep, [this](int position) {
        m_grid.scrollTo(position, m_grid.verticalScroll().position);
        showGrid();
    });
    connectScrollBar(*m_ui->gridVerticalBar, kGridStep, [this](int position) {
        m_grid.scrollTo(m_grid.horizontalScroll().position, position);
        showGrid();
    });
    m_ui->gridArea->installEventFilter(this);
}

// A list that gets the focus makes a line its current one; only a selected line was chosen.
void MapLayoutPage::connectList()
{
    connect(m_ui->screenList->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MapLayoutPage::assignChosenScreen);
}

void MapLayoutPage::resizeMap(MapLayoutModel::ResizeResult (MapLayoutModel::*change)())
{
    const MapLayoutModel::ResizeResult result = (m_model.*change)();
    if (result == MapLayoutModel::ResizeResult::kDone)
        refresh();
    else if (const std::string_view message = MapLayoutModel::message(result); !message.empty())
        m_prompt.showMessage(message, MessageIcon::kExclamation);
}

void MapLayoutPage::moveMap(int rows, int columns)
{
    m_model.moveMap(rows, columns);
    showSelection();
}

void MapLayoutPage::selectCellAt(QPoint point)
{
    if (!m_ui->gridView->containsPicturePoint(point))
        return;
    const MapCell cell = m_grid.cellAt(point.x(), point.y());
    if (cell == m_model.selectedCell())
        return;
    m_model.selectCell(cell);
    m_grid.scrollToSelectedCell();
    showSelection();
}

void MapLayoutPage::moveSelection(QPoint direction)
{
    if (!m_model.hasMap())
        return;
    const MapCell cell = m_model.selectedCell();
    m_model.selectCell({stepped(cell.row, direction.y()), stepped(cell.column, direction.x())});
    m_grid.scrollToSelectedCell();
    showSelection();
}

void MapLayoutPage::assignChosenScreen()
{
    const QModelIndexList chosen = m_ui->screenList->selectionModel()->selectedIndexes();
    // The page's own choice of a line is what the cell holds already.
    if (!chosen.isEmpty() && chosen.front().row() != m_model.selectedScreen()) {
        m_model.assignScreen(chosen.front().row());
        showSelection();
    } else if (chosen.isEmpty() && m_model.selectedScreen()) {
        showSelectedLine(); // a cell cannot be emptied
    }
}

void MapLayoutPage::showRoom()
{
    const bool hasMap = m_model.hasMap();
    for (QWidget* control :
         {static_cast<QWidget*>(m_ui->growHeightButton),
          static_cast<QWidget*>(m_ui->shrinkHeightButton),
          static_cast<QWidget*>(m_ui->growWidthButton),
          static_cast<QWidget*>(m_ui->shrinkWidthButton), static_cast<QWidget*>(m_ui->moveUpButton),
          static_cast<QWidget*>(m_ui->moveDownButton), static_cast<QWidget*>(m_ui->moveLeftButton),
          static_cast<QWidget*>(m_ui->moveRightButton)})
        control->setEnabled(hasMap);
    m_ui->heightValue->setText(toQString(m_model.heightText()));
    m_ui->widthValue->setText(toQString(m_model.widthText()));
    const QString rooms = hasMap ? toQString(m_model.synchronisedRoomsText()) : QString();
    m_ui->synchronisedRoomsEdit->setText(rooms);
    m_ui->synchronisedRoomsEdit->setCursorPosition(0);

    m_grid.refresh();
    fitGrid();
    m_grid.scrollToSelectedCell();
    showLines();
    showSelection();
}

void MapLayoutPage::showLines()
{
    QStringList lines;
    if (m_model.hasMap()) {
        for (const std::string& line : screenListLines(m_state))
            lines.append(toQString(line));
    }
    // A list that stays the same stays scrolled to where it is.
    if (lines != m_lines.stringList())
        m_lines.setStringList(lines);
}

void MapLayoutPage::showSelection()
{
    showGrid();
    showSelectedLine();
    if (m_model.hasMap()) {
        m_model.drawSelectedScreen(m_ui->screenView->picture());
        m_ui->screenView->showPicture();
    } else {
        m_ui->screenView->clearPicture();
    }
}

void MapLayoutPage::showSelectedLine()
{
    if (const std::optional<std::uint8_t> screen = m_model.selectedScreen())
        m_ui->screenList->setCurrentIndex(m_lines.index(*screen));
    else
        m_ui->screenList->selectionModel()->clear();
}

void MapLayoutPage::showGrid()
{
    m_grid.draw(m_ui->gridView->picture());
    m_ui->gridView->showPicture();
    m_ui->gridHorizontalBar->setValue(m_grid.horizontalScroll().position);
    m_ui->gridVerticalBar->setValue(m_grid.verticalScroll().position);
}

void MapLayoutPage::fitGrid()
{
    QScrollBar& horizontal = *m_ui->gridHorizontalBar;
    QScrollBar& vertical = *m_ui->gridVerticalBar;
    const QSize bars(vertical.sizeHint().width(), horizontal.sizeHint().height());
    QSize space = m_ui->gridArea->size() - QSize(2 * PictureView::kFrame, 2 * PictureView::kFrame);
    m_grid.setViewSize(space.width(), space.height());
    if (m_grid.horizontalScroll().isPartial() || m_grid.verticalScroll().isPartial()) {
        space -= bars;
        m_grid.setViewSize(space.width(), space.height());
    }
    showGrid();

    PictureView& view = *m_ui->gridView;
    // Without a map not even its frame shows.
    view.setGeometry(QRect(QPoint(0, 0), m_model.hasMap() ? view.sizeHint() : QSize(0, 0)));
    horizontal.setGeometry(0, view.height(), view.width(), bars.height());
    vertical.setGeometry(view.width(), 0, bars.width(), view.height());
    const auto fit = [](QScrollBar& bar, const ViewScroll& scroll) {
        showScroll(bar, scroll);
        bar.setVisible(scroll.isPartial());
    };
    fit(horizontal, m_grid.horizontalScroll());
    fit(vertical, m_grid.verticalScroll());
}

bool MapLayoutPage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_ui->gridArea && event->type() == QEvent::Resize)
        fitGrid();
    return Page::eventFilter(watched, event);
}

// Turned over the grid, the mouse wheel scrolls it.
void MapLayoutPage::wheelEvent(QWheelEvent* event)
{
    if (hitTest(event->position().toPoint(), *this, *m_ui->gridView))
        scrollByWheel(*event, *m_ui->gridHorizontalBar, *m_ui->gridVerticalBar);
    else
        event->ignore();
}

} // namespace velko
