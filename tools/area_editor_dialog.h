#pragma once

#include "tools/area_settings.h"

#include <QDialog>
#include <memory>

namespace Ui {
class AreaEditorDialog;
}

namespace velko {

// Edits how the hero enters each area and which item clears it. Areas are shown counted from 1.
// Every change is in the ROM image at once.
class AreaEditorDialog final : public QDialog {
    Q_OBJECT
public:
    explicit AreaEditorDialog(EditorState& state, QWidget* parent = nullptr);
    ~AreaEditorDialog() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void fillItems(const EditorState& state);
    void connectControls();
    void showArea();

    AreaSettings m_settings;
    std::unique_ptr<Ui::AreaEditorDialog> m_ui;
};

} // namespace velko
