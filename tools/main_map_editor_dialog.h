#pragma once

#include "rom/user_prompt.h"
#include "tools/overworld_model.h"

#include <QButtonGroup>
#include <QDialog>
#include <memory>

class QSlider;

namespace Ui {
class MainMapEditorDialog;
}

namespace velko {

class ArrowSpin;
class HexEdit;
class PictureView;

// Edits the overworld: its map and palettes, where the areas lie and how the chopper leaves them,
// and the trucks. Every change is in the ROM image at once. While the window lives pattern memory
// holds the overworld's graphics; when it goes, the room's are back.
class MainMapEditorDialog final : public QDialog {
    Q_OBJECT
public:
    MainMapEditorDialog(EditorState& state, UserPrompt& prompt, QWidget* parent = nullptr);
    ~MainMapEditorDialog() override;

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setDirectionIds();
    void setSizes();
    void connectModes();
    void connectMap();
    void connectPickers();
    // Picks with the left button, and with the arrow keys.
    void connectPicker(PictureView& view, bool (OverworldModel::*pickAt)(int px, int py),
                       void (OverworldModel::*moveBy)(int columns, int rows));
    void connectAreaControls();
    void connectTruckControls();
    // Each control sets a number of the model.
    using Setter = void (OverworldModel::*)(int);
    // A slider without a field of its own tells the number beside the mouse, as "`name` 3".
    void connectSlider(QSlider& slider, Setter set, const QString& name = {});
    void connectEdit(HexEdit& edit, Setter set);
    void connectSpin(ArrowSpin& spin, Setter set);
    void connectButton(QAbstractButton& button, void (OverworldModel::*act)());

    void actOnMap(OverworldChange change);
    // The mouse comes to a point of the map's picture with these buttons held.
    void dragOnMap(QPoint point, Qt::MouseButtons buttons);
    // The same, counted from the window's corner; where the window is too small the map is cut off.
    void dragInWindow(QPoint point, Qt::MouseButtons buttons);

    // Everything: which controls can be used, what they hold, the pictures. A box that is being
    // typed in can keep its text.
    void showAll(const HexEdit* typedIn = nullptr);
    void showMode();
    void showAreaFields(const HexEdit* typedIn = nullptr);
    void showTruckFields();
    void showMap();
    void showPickers();

    OverworldModel m_model;
    std::unique_ptr<Ui::MainMapEditorDialog> m_ui;
    QButtonGroup m_modes; // by OverworldMode
};

} // namespace velko
