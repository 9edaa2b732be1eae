// Dockable palettes and the bridge for modal Qt forms.
#pragma once

#include <nrx/types.h>

#include <QRect>
#include <QString>
#include <QWidget>
#include <memory>

// An invisible window over the host's main window: parent of a modal form.
class NRX_API QWinWidget : public QWidget {
public:
    explicit QWinWidget(QWidget* hostWindow);
    // Places itself in the middle of the host's window, so that the form opens there.
    void showCentered();
};

// A page of a palette set.
class NRX_API hostQtPalette {
public:
    virtual ~hostQtPalette();
    // The widget to which a form is added with a layout.
    QWidget* paletteWidget() const;

private:
    friend class hostUiPaletteSet;
    friend bool hostQtPalette_Create(hostQtPalette*, unsigned style, const QString& title);
    QString title_;
    QWidget* widget_ = nullptr;
};

// A dockable window of tabbed pages. Closing it only hides it.
class NRX_API hostUiPaletteSet {
public:
    hostUiPaletteSet();
    virtual ~hostUiPaletteSet();
    QWidget* window() const;
    struct Data;
    std::unique_ptr<Data> data_;
};
class NRX_API hostUiQtPaletteSet : public hostUiPaletteSet { };

enum hostPaletteDocking { kDockAnySide = 61440 };

NRX_API bool hostUiPaletteSet_Create(hostUiPaletteSet* set, const QString& title, unsigned windowStyle,
                                     const QRect& rectangle, QWidget* parent, unsigned paletteStyle);
NRX_API void hostUiPaletteSet_EnableDocking(hostUiPaletteSet* set, unsigned sides);
NRX_API void hostUiPaletteSet_RestoreControlBar(hostUiPaletteSet* set, unsigned dockBar);
NRX_API bool hostQtPalette_Create(hostQtPalette* palette, unsigned style, const QString& title);
// The set then owns the palette.
NRX_API int hostUiPaletteSet_AddPalette(hostUiPaletteSet* set, hostQtPalette* palette);
NRX_API hostQtPalette* hostUiPaletteSet_GetPalette(const hostUiPaletteSet* set, int index);
NRX_API int hostUiPaletteSet_GetPaletteCount(const hostUiPaletteSet* set);
NRX_API QWidget* hostQtPalette_paletteWidget(hostQtPalette* palette);
NRX_API bool hostUiPaletteSet_SetActivePalette(hostUiPaletteSet* set, int index);
NRX_API void hostUiPaletteSet_Show(hostUiPaletteSet* set, bool visible);
NRX_API bool IsWindowVisible(const hostUiPaletteSet* set);
NRX_API QRect hostUiPaletteSet_GetClientRect(const hostUiPaletteSet* set);
// Destroys the window; the set object itself is deleted by its owner.
NRX_API void hostUiPaletteSet_DestroyWindow(hostUiPaletteSet* set);
