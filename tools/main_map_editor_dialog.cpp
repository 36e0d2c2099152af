#include "tools/main_map_editor_dialog.h"

#include "app/text.h"
#include "app/ui_common.h"
#include "rom/number_text.h"
#include "ui_main_map_editor_dialog.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QToolTip>
#include <algorithm>

namespace velko {

namespace {

constexpr int kLargestNibble = 15;
constexpr int kFirstDirectionId = 1199; // and the seven that follow
constexpr int kMostTicks = 32;
constexpr QPoint kPictureCorner(PictureView::kFrame, PictureView::kFrame); // in its view

void showNumber(QSlider& slider, int last, int number)
{
    const QSignalBlocker blocker(slider);
    slider.setRange(0, last);
    slider.setPageStep(std::max(1, (last + 1) / 5));
    slider.setTickInterval(last / kMostTicks + 1);
    slider.setValue(number);
}

std::uint32_t asNumber(int value)
{
    return static_cast<std::uint32_t>(value);
}

} // namespace

MainMapEditorDialog::MainMapEditorDialog(EditorState& state, UserPrompt& prompt, QWidget* parent)
    : QDialog(parent), m_model(state, prompt), m_ui(std::make_unique<Ui::MainMapEditorDialog>())
{
    m_ui->setupUi(this);
    setDirectionIds();
    setSizes();
    connectModes();
    connectMap();
    connectPickers();
    connectAreaControls();
    connectTruckControls();
    showAll();
    resizeToContents(*this, *m_ui->contentsScroll);
}

MainMapEditorDialog::~MainMapEditorDialog()
{
    // While the widgets go, a box may lose the focus, which ends its editing.
    for (HexEdit* edit : findChildren<HexEdit*>())
        edit->disconnect(this);
}

void MainMapEditorDialog::setDirectionIds()
{
    for (int place = 0; place < DirectionPad::kDirections; ++place) {
        const auto direction = OverworldModel::kButtonDirections[static_cast<std::size_t>(place)];
        m_ui->directionPad->button(direction).setProperty(kControlId, kFirstDirectionId + place);
    }
}

void MainMapEditorDialog::setSizes()
{
    m_ui->mapView->setPictureSize({OverworldModel::kDisplayWidth, OverworldModel::kDisplayHeight});
    for (PictureView* picker : {m_ui->tilePicker, m_ui->presetPicker})
        picker->setPictureSize({PickerGrid::kSize, PickerGrid::kSize});
    // Room for a byte, however it is typed.
    for (HexEdit* edit : findChildren<HexEdit*>())
        edit->setFixedWidth(edit->minimumSizeHint().width()
                            + edit->fontMetrics().horizontalAdvance("0x0"));
    // Wheels turned to scroll the window must not change the game.
    for (QSlider* slider : findChildren<QSlider*>())
        slider->installEventFilter(this);
}

void MainMapEditorDialog::connectModes()
{
    int mode = 0;
    for (QRadioButton* button : {m_ui->tileRadio, m_ui->presetRadio, m_ui->paletteRadio,
                                 m_ui->areaRadio, m_ui->truckRadio})
        m_modes.addButton(button, mode++);
    connect(&m_modes, &QButtonGroup::idClicked, this, [this](int id) {
        m_model.setMode(static_cast<OverworldMode>(id));
        showAll();
    });
    connect(m_ui->closeButton, &QPushButton::clicked, this, &QDialog::accept);
}

void MainMapEditorDialog::connectMap()
{
    PictureView& view = *m_ui->mapView;
    connect(&view, &PictureView::mousePressed, this, [this](QPoint point, Qt::MouseButton button) {
        if (button == Qt::LeftButton)
            actOnMap(m_model.press(MapButton::kLeft, point.x(), point.y()));
        if (button == Qt::RightButton)
            actOnMap(m_model.press(MapButton::kRight, point.x(), point.y()));
    });
    connect(&view, &PictureView::mouseMoved, this, &MainMapEditorDialog::dragOnMap);
    connect(&view, &PictureView::keyPressed, this, [this](QKeyEvent* key) {
        const QPoint direction = arrowDirection(*key);
        if (direction.isNull() || m_model.mode() != OverworldMode::kArea)
            return;
        key->accept();
        m_model.moveArea(direction.x(), direction.y());
        actOnMap(OverworldChange::kMap);
    });
}

void MainMapEditorDialog::connectPickers()
{
    connectPicker(*m_ui->tilePicker, &OverworldModel::pickTileAt, &OverworldModel::moveTile);
    connectPicker(*m_ui->presetPicker, &OverworldModel::pickPresetAt, &OverworldModel::movePreset);
}

void MainMapEditorDialog::connectPicker(PictureView& view, bool (OverworldModel::*pickAt)(int, int),
                                        void (OverworldModel::*moveBy)(int, int))
{
    connect(&view, &PictureView::mousePressed, this,
            [this, pickAt](QPoint point, Qt::MouseButton button) {
                if (button == Qt::LeftButton && (m_model.*pickAt)(point.x(), point.y()))
                    showAll();
            });
    // What was picked can be carried onto the map.
    connect(&view, &PictureView::mouseMoved, this,
            [this, &view](QPoint point, Qt::MouseButtons buttons) {
                dragInWindow(view.mapTo(this, point + kPictureCorner), buttons);
            });
    view.connectArrowKeys([this, moveBy](QPoint direction) {
        (m_model.*moveBy)(direction.x(), direction.y());
        showAll();
    });
}

void MainMapEditorDialog::connectAreaControls()
{
    connectSlider(*m_ui->areaSlider, &OverworldModel::selectArea);
    connectSlider(*m_ui->movementSlider, &OverworldModel::selectEntry, "Direction");
    connectButton(*m_ui->movementPlusButton, &OverworldModel::addEntry);
    connectButton(*m_ui->movementMinusButton, &OverworldModel::removeEntry);
    connectEdit(*m_ui->chopperSpriteEdit, &OverworldModel::setChopperSprite);
    connectSpin(*m_ui->chopperSpriteSpin, &OverworldModel::setChopperSprite);
    connectEdit(*m_ui->pathPreviewEdit, &OverworldModel::setPathPreviewSprite);
    connectSpin(*m_ui->pathPreviewSpin, &OverworldModel::setPathPreviewSprite);
    connectEdit(*m_ui->firstDigitEdit, &OverworldModel::setFirstDigit);
    connectEdit(*m_ui->secondDigitEdit, &OverworldModel::setSecondDigit);
}

void MainMapEditorDialog::connectTruckControls()
{
    connectSlider(*m_ui->truckSlider, &OverworldModel::selectTruck, "Truck");
    connectSlider(*m_ui->startingAreaSlider, &OverworldModel::setStartingArea);
    connectSlider(*m_ui->patternSetSlider, &OverworldModel::setPatternSet);
    connectSlider(*m_ui->phaseSlider, &OverworldModel::selectPhase, "Phase");
    connectButton(*m_ui->phasePlusButton, &OverworldModel::addPhase);
    connectButton(*m_ui->phaseMinusButton, &OverworldModel::removePhase);
    connect(m_ui->directionPad, &DirectionPad::directionPressed, this, [this](int direction) {
        m_model.setDirection(direction);
        showAll();
    });
}

void MainMapEditorDialog::connectSlider(QSlider& slider, Setter set, const QString& name)
{
    connect(&slider, &QSlider::valueChanged, this, [this, &slider, set, name](int number) {
        (m_model.*set)(number);
        showAll();
        if (!name.isEmpty())
            QToolTip::showText(slider.mapToGlobal(slider.rect().bottomRight()),
                               name + " " + toQString(hexText(asNumber(slider.value()))), &slider);
    });
}

void MainMapEditorDialog::connectEdit(HexEdit& edit, Setter set)
{
    connect(&edit, &HexEdit::textChanged, this, [this, &edit, set] {
        if (edit.settingText())
            return;
        const std::uint32_t typed = edit.getHex();
        (m_model.*set)(static_cast<int>(typed & kLargestNibble));
        // A second digit takes the place of the first; an emptied box may stay empty for a while.
        showAll(typed > kLargestNibble ? nullptr : &edit);
    });
    // In the end the box has the digit that was made of the text.
    connect(&edit, &HexEdit::editingFinished, this, [this] { showAreaFields(); });
}

void MainMapEditorDialog::connectSpin(ArrowSpin& spin, Setter set)
{
    spin.setRange(0, kLargestNibble);
    connect(&spin, &ArrowSpin::positionChanged, this, [this, set](int position) {
        (m_model.*set)(position);
        showAll();
    });
}

void MainMapEditorDialog::connectButton(QAbstractButton& button, void (OverworldModel::*act)())
{
    connect(&button, &QAbstractButton::clicked, this, [this, act] {
        (m_model.*act)();
        showAll();
    });
}

void MainMapEditorDialog::actOnMap(OverworldChange change)
{
    if (change == OverworldChange::kMap)
        showMap();
    if (change != OverworldChange::kNothing)
        showPickers(); // their colours follow the map
}

void MainMapEditorDialog::dragOnMap(QPoint point, Qt::MouseButtons buttons)
{
    if (buttons.testFlag(Qt::LeftButton))
        actOnMap(m_model.drag(MapButton::kLeft, point.x(), point.y()));
    if (buttons.testFlag(Qt::RightButton))
        actOnMap(m_model.drag(MapButton::kRight, point.x(), point.y()));
}

void MainMapEditorDialog::dragInWindow(QPoint point, Qt::MouseButtons buttons)
{
    const QWidget& shown = *m_ui->contentsScroll->viewport();
    if (hitTest(shown.mapFrom(this, point), shown, shown))
        dragOnMap(m_ui->mapView->mapFrom(this, point) - kPictureCorner, buttons);
}

void MainMapEditorDialog::showAll(const HexEdit* typedIn)
{
    showMode();
    showAreaFields(typedIn);
    showTruckFields();
    showMap();
    showPickers();
}

void MainMapEditorDialog::showMode()
{
    m_modes.button(static_cast<int>(m_model.mode()))->setChecked(true);
    m_ui->areaGroup->setEnabled(m_model.areaControlsEnabled());
    m_ui->truckGroup->setEnabled(m_model.truckControlsEnabled());
    // Only an area can be moved by keys.
    m_ui->mapView->setFocusPolicy(m_model.areaControlsEnabled() ? Qt::StrongFocus : Qt::NoFocus);
}

void MainMapEditorDialog::showAreaFields(const HexEdit* typedIn)
{
    showNumber(*m_ui->areaSlider, m_model.lastArea(), m_model.area());
    m_ui->areaValue->setHex(asNumber(m_model.area()));
    showNumber(*m_ui->movementSlider, m_model.lastEntry(), m_model.entry());
    m_ui->movementSlider->setEnabled(m_model.canChooseEntry());

    const AreaMovement::Entry entry = m_model.entryValues();
    const auto showDigit = [typedIn](HexEdit* edit, std::uint8_t digit) {
        if (edit != typedIn)
            edit->setHex(digit);
    };
    showDigit(m_ui->chopperSpriteEdit, entry.chopperSprite);
    showDigit(m_ui->pathPreviewEdit, entry.pathPreviewSprite);
    showDigit(m_ui->firstDigitEdit, entry.firstDigit);
    showDigit(m_ui->secondDigitEdit, entry.secondDigit);
    m_ui->chopperSpriteSpin->setPosition(entry.chopperSprite);
    m_ui->pathPreviewSpin->setPosition(entry.pathPreviewSprite);
}

void MainMapEditorDialog::showTruckFields()
{
    showNumber(*m_ui->truckSlider, m_model.lastTruck(), m_model.truck());
    showNumber(*m_ui->startingAreaSlider, OverworldModel::kLastStartingArea,
               m_model.startingArea());
    m_ui->startingAreaValue->setHex(asNumber(m_model.startingArea()));
    showNumber(*m_ui->patternSetSlider, m_model.lastPatternSet(), m_model.patternSet());
    m_ui->patternSetValue->setHex(asNumber(m_model.patternSet()));
    showNumber(*m_ui->phaseSlider, m_model.lastPhase(), m_model.phase());
    m_ui->directionPad->setDirection(m_model.direction());
}

void MainMapEditorDialog::showMap()
{
    m_model.drawMap(m_ui->mapView->picture());
    m_ui->mapView->showPicture();
}

void MainMapEditorDialog::showPickers()
{
    m_model.drawTilePicker(m_ui->tilePicker->picture());
    m_ui->tilePicker->showPicture();
    m_model.drawPresetPicker(m_ui->presetPicker->picture());
    m_ui->presetPicker->showPicture();
}

// A button that went down beside the map acts as soon as the mouse comes onto it.
void MainMapEditorDialog::mouseMoveEvent(QMouseEvent* event)
{
    dragInWindow(event->position().toPoint(), event->buttons());
}

bool MainMapEditorDialog::eventFilter(QObject* watched, QEvent* event)
{
    const auto* slider = qobject_cast<QSlider*>(watched);
    if (slider == nullptr || event->type() != QEvent::Wheel || slider->hasFocus())
        return QDialog::eventFilter(watched, event);
    event->ignore();
    return true;
}

} // namespace velko
