#include "gfx/palette_page.h"

#include "app/scroll_rule.h"
#include "app/ui_common.h"
#include "ui_palette_page.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

namespace velko {

PalettePage::PalettePage(EditorState& state, QWidget* parent)
    : Page(parent), m_model(state), m_ui(std::make_unique<Ui::PalettePage>())
{
    m_ui->setupUi(this);
    // Room for a byte, however it is typed.
    const int digits = m_ui->valueEdit->fontMetrics().horizontalAdvance("0x0000");
    m_ui->valueEdit->setFixedWidth(m_ui->valueEdit->minimumSizeHint().width() + digits);
}

PalettePage::~PalettePage()
{
    // While the widgets go, the box may lose the focus, which ends its editing.
    m_ui->valueEdit->disconnect(this);
}

void PalettePage::setup()
{
    connectEntries();
    connectColours();
    connectPreview();
}

void PalettePage::refresh()
{
    showChange();
    fitScrollBars();
}

void PalettePage::connectDrag(PictureView& view, const std::function<void(QPoint)>& act)
{
    connect(&view, &PictureView::mousePressed, this, [act](QPoint point, Qt::MouseButton button) {
        if (button == Qt::LeftButton)
            act(point);
    });
    connect(&view, &PictureView::mouseMoved, this, [act](QPoint point, Qt::MouseButtons buttons) {
        if (buttons.testFlag(Qt::LeftButton))
            act(point);
    });
}

void PalettePage::connectEntries()
{
    connectDrag(*m_ui->entriesView, [this](QPoint point) {
        if (const auto entry = PaletteModel::entryAt(point.x(), point.y())) {
            m_model.selectEntry(*entry);
            showEntry();
        }
    });
    m_ui->entriesView->connectArrowKeys([this](QPoint direction) {
        m_model.moveSelection(direction.x(), direction.y());
        showEntry();
    });
}

void PalettePage::connectColours()
{
    connectDrag(*m_ui->colourGridView, [this](QPoint point) {
        if (const auto number = PaletteModel::colourAt(point.x(), point.y())) {
            m_model.setValue(static_cast<std::uint8_t>(*number));
            showChange();
        }
    });
    m_ui->colourGridView->connectArrowKeys([this](QPoint direction) {
        m_model.moveColour(direction.x(), direction.y());
        showChange();
    });
    connect(m_ui->blackButton, &QPushButton::clicked, this, [this] {
        m_model.setBlack();
        showChange();
    });

    connect(m_ui->valueEdit, &HexEdit::textEdited, this, [this] {
        m_model.setValue(static_cast<std::uint8_t>(m_ui->valueEdit->getHex() & 0xFF));
        showTypedChange();
    });
    // The box ends up with the byte that was made of the text.
    connect(m_ui->valueEdit, &HexEdit::editingFinished, this,
            [this] { m_ui->valueEdit->setHex(m_model.value()); });

    // A spin springs back to its middle, so that it can always be pressed either way.
    const auto connectSpin = [this](ArrowSpin& spin, void (PaletteModel::*step)(int)) {
        spin.setRange(-1, 1);
        spin.setPosition(0);
        connect(&spin, &ArrowSpin::positionChanged, this, [this, &spin, step](int position) {
            (m_model.*step)(position);
            spin.setPosition(0);
            showChange();
        });
    };
    connectSpin(*m_ui->brightnessSpin, &PaletteModel::stepBrightness);
    connectSpin(*m_ui->hueSpin, &PaletteModel::stepHue);
}

void PalettePage::connectPreview()
{
    QScrollBar& horizontal = *m_ui->roomHorizontalBar;
    QScrollBar& vertical = *m_ui->roomVerticalBar;
    connectScrollBar(horizontal, PaletteModel::kPreviewStep, [this](int position) {
        m_model.scrollPreviewTo(position, m_model.verticalScroll().position);
        showPreview();
    });
    connectScrollBar(vertical, PaletteModel::kPreviewStep, [this](int position) {
        m_model.scrollPreviewTo(m_model.horizontalScroll().position, position);
        showPreview();
    });
    connect(m_ui->roomView, &PictureView::keyPressed, this,
            [&horizontal, &vertical](QKeyEvent* key) { scrollByKey(*key, horizontal, vertical); });
    m_ui->previewArea->installEventFilter(this);
}

void PalettePage::showEntry()
{
    m_ui->valueEdit->setHex(m_model.value());
    showPictures();
}

void PalettePage::showChange()
{
    showEntry();
    showPreview();
}

void PalettePage::showTypedChange()
{
    showPictures();
    showPreview();
}

void PalettePage::showPictures()
{
    m_model.drawEntries(m_ui->entriesView->picture());
    m_ui->entriesView->showPicture();
    m_model.drawSelectedColour(m_ui->selectedColourView->picture());
    m_ui->selectedColourView->showPicture();
    m_model.drawColourGrid(m_ui->colourGridView->picture());
    m_ui->colourGridView->showPicture();
}

void PalettePage::showPreview()
{
    m_model.drawPreview(m_ui->roomView->picture());
    m_ui->roomView->showPicture();
}

void PalettePage::fitPreview()
{
    const int barWidth = m_ui->roomVerticalBar->sizeHint().width();
    const int barHeight = m_ui->roomHorizontalBar->sizeHint().height();
    const QSize space = m_ui->previewArea->size()
        - QSize(barWidth + 2 * PictureView::kFrame, barHeight + 2 * PictureView::kFrame);
    const QSize picture(PaletteModel::previewExtent(space.width()),
                        PaletteModel::previewExtent(space.height()));
    m_model.setPreviewSize(picture.width(), picture.height());

    PictureView& view = *m_ui->roomView;
    view.setPictureSize(picture);
    view.setGeometry(QRect(QPoint(0, 0), view.sizeHint()));
    m_ui->roomVerticalBar->setGeometry(view.width(), 0, barWidth, view.height());
    m_ui->roomHorizontalBar->setGeometry(0, view.height(), view.width(), barHeight);
    fitScrollBars();
    showPreview();
}

void PalettePage::fitScrollBars()
{
    showScroll(*m_ui->roomHorizontalBar, m_model.horizontalScroll());
    showScroll(*m_ui->roomVerticalBar, m_model.verticalScroll());
}

bool PalettePage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_ui->previewArea && event->type() == QEvent::Resize)
        fitPreview();
    return Page::eventFilter(watched, event);
}

// Turned over the preview, the mouse wheel scrolls it.
void PalettePage::wheelEvent(QWheelEvent* event)
{
    if (!hitTest(event->position().toPoint(), *this, *m_ui->roomView)) {
        event->ignore();
        return;
    }
    scrollByWheel(*event, *m_ui->roomHorizontalBar, *m_ui->roomVerticalBar);
}

} // namespace velko
