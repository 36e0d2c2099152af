#pragma once

#include "app/page.h"
#include "gfx/palette_model.h"

#include <functional>
#include <memory>

namespace Ui {
class PalettePage;
}

namespace velko {

class PictureView;

// The palette tab: the room's 32 entries, the console's 64 colours to choose from, and the room
// as it looks with them. Every change is in the ROM image at once. A drag works on the picture
// that it started on and does nothing while it is outside of it.
class PalettePage final : public Page {
    Q_OBJECT
public:
    explicit PalettePage(EditorState& state, QWidget* parent = nullptr);
    ~PalettePage() override;

    void setup() override;
    void refresh() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void connectDrag(PictureView& view, const std::function<void(QPoint)>& act);
    void connectEntries();
    void connectColours();
    void connectPreview();

    // After the selection moved.
    void showEntry();
    // After a write by anything but the edit box, and by the edit box, which keeps the user's
    // text while it is being typed.
    void showChange();
    void showTypedChange();

    void showPictures();
    void showPreview();
    // Gives the view as much of its space as can be scrolled in whole steps, the bars beside it.
    void fitPreview();
    void fitScrollBars();

    PaletteModel m_model;
    std::unique_ptr<Ui::PalettePage> m_ui;
};

} // namespace velko
