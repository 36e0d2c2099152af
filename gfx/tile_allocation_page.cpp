#include "gfx/tile_allocation_page.h"

#include "app/scroll_rule.h"
#include "app/text.h"
#include "app/ui_common.h"
#include "ui_tile_allocation_page.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

namespace velko {

TileAllocationPage::TileAllocationPage(EditorState& state, QWidget* parent)
    : Page(parent)
    , m_model(state)
    , m_pictures(state, m_model)
    , m_ui(std::make_unique<Ui::TileAllocationPage>())
{
    m_ui->setupUi(this);
    // Room for any address, in wide digits, so that nothing moves when the slot changes.
    QLabel& address = *m_ui->romAddressValue;
    address.setMinimumWidth(address.fontMetrics().horizontalAdvance("$dddddddd"));
}

TileAllocationPage::~TileAllocationPage()
{
    // While the widgets go, the canvas may lose the focus.
    m_ui->canvasView->removeEventFilter(this);
}

void TileAllocationPage::setup()
{
    connectGrid(*m_ui->slotView, &TileAllocationModel::selectSlot, &TileAllocationModel::moveSlot);
    connectGrid(*m_ui->blockView, &TileAllocationModel::selectBlock,
                &TileAllocationModel::moveBlock);
    connectAllocation();
    connectCanvas();
    connectColours();
}

void TileAllocationPage::refresh()
{
    setScrollRange(*m_ui->blockBar, m_model.lastBrowsePosition(), 1);
    showSelection();
    showColours();
}

void TileAllocationPage::connectGrid(PictureView& view, void (TileAllocationModel::*select)(int),
                                     void (TileAllocationModel::*moveBy)(int, int))
{
    connect(&view, &PictureView::mousePressed, this,
            [this, select](QPoint point, Qt::MouseButton button) {
                const auto cell = TileAllocationPictures::cellAt(point.x(), point.y());
                if (button != Qt::LeftButton || !cell)
                    return;
                (m_model.*select)(*cell);
                showSelection();
            });
    view.connectArrowKeys([this, moveBy](QPoint direction) {
        (m_model.*moveBy)(direction.x(), direction.y());
        showSelection();
    });
}

void TileAllocationPage::connectAllocation()
{
    QScrollBar& bar = *m_ui->blockBar;
    connectScrollBar(bar, 1, [this](int position) {
        m_model.browseTo(position);
        showSelection();
    });
    connect(m_ui->blockView, &PictureView::keyPressed, this, [&bar](QKeyEvent* key) {
        if (key->key() == Qt::Key_PageUp || key->key() == Qt::Key_PageDown)
            scrollByKey(*key, bar, bar);
    });
    connect(m_ui->mirrorCheck, &QCheckBox::clicked, this, [this] {
        m_model.toggleMirror();
        showSelection();
    });
    connect(m_ui->unusedCheck, &QCheckBox::clicked, this, [this] {
        m_model.toggleUnusedBit();
        showSelection();
    });
}

void TileAllocationPage::connectCanvas()
{
    connect(m_ui->canvasView, &PictureView::mousePressed, this, &TileAllocationPage::pressCanvas);
    connect(m_ui->canvasView, &PictureView::mouseMoved, this,
            [this](QPoint point, Qt::MouseButtons buttons) {
                if (buttons.testFlag(Qt::LeftButton))
                    dragOverCanvas(point);
            });
    connect(m_ui->canvasView, &PictureView::keyPressed, this,
            [this](QKeyEvent* key) { pressCanvasKey(*key); });
    m_ui->canvasView->installEventFilter(this);
}

void TileAllocationPage::connectColours()
{
    connect(m_ui->colourView, &PictureView::mousePressed, this,
            [this](QPoint point, Qt::MouseButton button) {
                const auto colour = TileAllocationPictures::colourAt(point.x(), point.y());
                if (button == Qt::LeftButton && colour)
                    setCurrentColour(*colour);
            });
    connect(m_ui->colourView, &PictureView::keyPressed, this, [this](QKeyEvent* key) {
        const QPoint direction = arrowDirection(*key);
        if (direction.y() == 0)
            return;
        key->accept();
        setCurrentColour(m_model.currentColour() + direction.y());
    });
}

void TileAllocationPage::pressCanvas(QPoint point, Qt::MouseButton button)
{
    const auto place = TileAllocationPictures::canvasPixelAt(point.x(), point.y());
    if (!place)
        return;
    m_cursor = *place;
    setCursorShown(false);
    if (button == Qt::LeftButton) {
        paint();
    } else if (button == Qt::RightButton) {
        m_model.pickColour(*place);
        showColours();
    }
}

// A drag paints nothing while it is outside of the canvas.
void TileAllocationPage::dragOverCanvas(QPoint point)
{
    const QPoint inWidget = point + QPoint(PictureView::kFrame, PictureView::kFrame);
    const auto place = TileAllocationPictures::canvasPixelAt(point.x(), point.y());
    if (!place || !m_ui->canvasView->rect().contains(inWidget))
        return;
    m_cursor = *place;
    paint();
}

void TileAllocationPage::pressCanvasKey(QKeyEvent& key)
{
    if (const QPoint direction = arrowDirection(key); !direction.isNull())
        moveCursor(direction);
    else if (key.key() == Qt::Key_Space)
        paint();
    else if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        setCurrentColour(m_model.pixel(m_cursor));
    else if (key.key() >= Qt::Key_0 && key.key() <= Qt::Key_3)
        setCurrentColour(key.key() - Qt::Key_0);
    else
        return;
    key.accept();
    setCursorShown(true);
}

void TileAllocationPage::moveCursor(QPoint direction)
{
    constexpr int kLast = TileAllocationModel::kBlockSize - 1;
    m_cursor.column = std::clamp(m_cursor.column + direction.x(), 0, kLast);
    m_cursor.row = std::clamp(m_cursor.row + direction.y(), 0, kLast);
    showCanvas();
}

void TileAllocationPage::setCursorShown(bool shown)
{
    if (shown == m_cursorShown)
        return;
    m_cursorShown = shown;
    showCanvas();
}

void TileAllocationPage::paint()
{
    if (m_model.paint(m_cursor))
        showSelection();
}

void TileAllocationPage::setCurrentColour(int colour)
{
    m_model.setCurrentColour(colour);
    showColours();
}

void TileAllocationPage::showSelection()
{
    const BackgroundSlot slot = m_model.slot();
    m_ui->blockBar->setValue(m_model.browsePosition());
    m_ui->mirrorCheck->setChecked(slot.mirrored);
    m_ui->unusedCheck->setChecked(slot.unusedBit);
    m_ui->indexValue->setText(toQString(m_model.indexText()));
    m_ui->bankValue->setText(toQString(m_model.bankText()));
    m_ui->tileNumberValue->setText(toQString(m_model.tileNumberText()));
    m_ui->romAddressValue->setText(toQString(m_model.romAddressText()));

    m_pictures.drawSlots(m_ui->slotView->picture());
    m_ui->slotView->showPicture();
    m_pictures.drawBlocks(m_ui->blockView->picture());
    m_ui->blockView->showPicture();
    showCanvas();
}

void TileAllocationPage::showCanvas()
{
    m_pictures.drawCanvas(m_ui->canvasView->picture(),
                          m_cursorShown ? std::optional(m_cursor) : std::nullopt);
    m_ui->canvasView->showPicture();
}

void TileAllocationPage::showColours()
{
    m_pictures.drawColours(m_ui->colourView->picture());
    m_ui->colourView->showPicture();
}

// Whoever comes to the canvas by keyboard sees where the keyboard paints.
bool TileAllocationPage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_ui->canvasView && event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        setCursorShown(reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason);
    } else if (watched == m_ui->canvasView && event->type() == QEvent::FocusOut) {
        setCursorShown(false);
    }
    return Page::eventFilter(watched, event);
}

// Turned over the blocks, the mouse wheel scrolls them.
void TileAllocationPage::wheelEvent(QWheelEvent* event)
{
    if (hitTest(event->position().toPoint(), *this, *m_ui->blockView))
        scrollByWheel(*event, *m_ui->blockBar, *m_ui->blockBar);
    else
        event->ignore();
}

} // namespace velko
