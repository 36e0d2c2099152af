#include "tools/room_selector_dialog.h"

#include "app/picture_view.h"
#include "app/scroll_rule.h"
#include "app/text.h"
#include "app/ui_common.h"
#include "ui_room_selector_dialog.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

namespace velko {

RoomSelectorDialog::RoomSelectorDialog(EditorState& state, std::uint8_t room, QWidget* parent)
    : QDialog(parent)
    , m_state(state)
    , m_browser(state.config.roomCount(), room)
    , m_room(room)
    , m_ui(std::make_unique<Ui::RoomSelectorDialog>())
{
    m_ui->setupUi(this);
    m_ui->okButton->hide();
    createThumbnails();
    setScrollRange(*m_ui->pageBar, static_cast<int>(m_browser.lastPage()), 1);
    m_ui->pageBar->setValue(static_cast<int>(m_browser.page()));
    connectControls();
    showPage();
    m_thumbnails[room % RoomBrowser::kSlots]->setFocus();
    resizeToContents(*this, *m_ui->thumbnailScroll);
}

RoomSelectorDialog::~RoomSelectorDialog() = default;

void RoomSelectorDialog::createThumbnails()
{
    constexpr int kFrame = PictureView::kFrame;
    for (int slot = 0; slot < RoomBrowser::kSlots; ++slot) {
        auto* view = new PictureView(m_ui->thumbnailArea);
        view->setObjectName(QString("thumbnail%1").arg(slot));
        view->setCursor(Qt::PointingHandCursor);
        view->setPictureSize({RoomBrowser::kThumbnailSize, RoomBrowser::kThumbnailSize});
        view->picture().allocate(RoomBrowser::kThumbnailSize, RoomBrowser::kThumbnailSize);
        const RoomBrowser::Point corner = RoomBrowser::corner(slot);
        view->setGeometry(QRect(QPoint(corner.x - kFrame, corner.y - kFrame), view->sizeHint()));
        connect(view, &PictureView::mouseReleased, this,
                [this, view](QPoint point, Qt::MouseButton button) {
                    const QPointF inWidget = point + QPoint(kFrame, kFrame);
                    releaseButton(view->mapToGlobal(inWidget), button);
                });
        connect(view, &PictureView::keyPressed, this,
                [this, slot](QKeyEvent* key) { pressKey(slot, *key); });
        m_thumbnails[static_cast<std::size_t>(slot)] = view;
    }
    setTabOrder(m_thumbnails.back(), m_ui->backButton);
}

void RoomSelectorDialog::connectControls()
{
    connectScrollBar(*m_ui->pageBar, 1, [this](int page) {
        m_browser.turnTo(static_cast<std::uint32_t>(page));
        showPage();
    });
    connect(m_ui->backButton, &QPushButton::clicked, this, &QDialog::reject);
}

void RoomSelectorDialog::showPage()
{
    for (int slot = 0; slot < RoomBrowser::kSlots; ++slot) {
        PictureView& view = *m_thumbnails[static_cast<std::size_t>(slot)];
        const std::optional<std::uint32_t> room = m_browser.roomInSlot(slot);
        view.setVisible(room.has_value());
        if (room)
            showRoom(view, *room);
    }
}

void RoomSelectorDialog::showRoom(PictureView& view, std::uint32_t room)
{
    const std::vector<std::string>& names = m_state.names.rooms;
    const std::string name = room < names.size() ? names[room] : std::string();
    m_state.renderer.renderRoomThumbnail(static_cast<std::uint8_t>(room), view.picture(), name,
                                         m_state.backgroundColour);
    view.showPicture();
    // A long name is cut off in the picture.
    view.setToolTip(toQString(name).toHtmlEscaped());
    view.setAccessibleName(toQString(name));
}

void RoomSelectorDialog::releaseButton(QPointF globalPoint, Qt::MouseButton button)
{
    const QPoint point = globalPoint.toPoint();
    const QWidget& shown = *m_ui->thumbnailScroll->viewport();
    if (button != Qt::LeftButton || !hitTest(shown.mapFromGlobal(point), shown, shown))
        return;
    const QPoint inArea = m_ui->thumbnailArea->mapFromGlobal(point);
    if (const auto room = m_browser.roomAt({inArea.x(), inArea.y()}))
        chooseRoom(*room);
}

void RoomSelectorDialog::pressKey(int slot, QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        key.accept();
        if (const auto room = m_browser.roomInSlot(slot))
            chooseRoom(*room);
        return;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        // Not on to the scroll area, which would take it for itself.
        return keyPressEvent(&key);
    default:
        break;
    }
    const QPoint direction = arrowDirection(key);
    if (direction.isNull())
        return;
    key.accept();
    const int beside = m_browser.slotBeside(slot, direction.x(), direction.y());
    m_thumbnails[static_cast<std::size_t>(beside)]->setFocus();
}

void RoomSelectorDialog::chooseRoom(std::uint32_t room)
{
    m_room = static_cast<std::uint8_t>(room);
    accept();
}

void RoomSelectorDialog::closeEvent(QCloseEvent* event)
{
    m_closedByCaption = true;
    QDialog::closeEvent(event);
}

// Wherever the focus is, these keys turn the pages.
void RoomSelectorDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown)
        scrollByKey(*event, *m_ui->pageBar, *m_ui->pageBar);
    else
        QDialog::keyPressEvent(event);
}

void RoomSelectorDialog::mouseReleaseEvent(QMouseEvent* event)
{
    releaseButton(event->globalPosition(), event->button());
}

void RoomSelectorDialog::wheelEvent(QWheelEvent* event)
{
    scrollByWheel(*event, *m_ui->pageBar, *m_ui->pageBar);
}

} // namespace velko
