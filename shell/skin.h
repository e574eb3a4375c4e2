#pragma once

#include "core/export.h"
#include "gfx/surface.h"

#include <SDL.h>
#include <SDL_ttf.h>

/// What every page is drawn with. Before init_shared_skin and after uninit_shared_skin all fonts and
/// pictures are null, and any of them stays null if its file is missing. Owned by the skin; main thread.
///
/// The two greens have an alpha of 0 on purpose: text rendering takes that for opaque.
extern KESTRO_API SDL_Color gHighlightColor;  ///< what matches a search
extern KESTRO_API SDL_Color gPopupColorTitle; ///< title of a pop-up or dialog
extern KESTRO_API SDL_Color gPopupColorTxt;   ///< its text
extern KESTRO_API SDL_Color gPopupColorBtn;   ///< its buttons
extern KESTRO_API SDL_Color gStatColorTxt;    ///< status bar
extern KESTRO_API SDL_Color gListColorTxt;    ///< list row
extern KESTRO_API SDL_Color gListColorSubtxt; ///< its second line
extern KESTRO_API SDL_Color gListColorSeq;    ///< its number
extern KESTRO_API SDL_Color gNavColorTxt;     ///< button hints
extern KESTRO_API SDL_Color gNavColorIcon;    ///< their buttons

/// The fonts, all from "./regular.ttf".
extern KESTRO_API TTF_Font* gNavFont;        ///< 32 points
extern KESTRO_API TTF_Font* gNavFontIcon;    ///< 24
extern KESTRO_API TTF_Font* gListFontTxt;    ///< 36
extern KESTRO_API TTF_Font* gListFontSubtxt; ///< 24
extern KESTRO_API TTF_Font* gStatFont;       ///< 24
extern KESTRO_API TTF_Font* gMenuFont;       ///< 36
extern KESTRO_API TTF_Font* gPopupFontTitle; ///< 44
extern KESTRO_API TTF_Font* gPopupFontTxt;   ///< 36
extern KESTRO_API TTF_Font* gPopupFontBtn;   ///< 36

/// The pictures, each from the theme's folder, else from "./".
extern KESTRO_API KestroSurface* gIconVideo;       ///< "skin/ic-video.png"
extern KESTRO_API KestroSurface* gIconFolder;      ///< "skin/ic-folder.png"
extern KESTRO_API KestroSurface* gBackground;      ///< "skin/bg.png"
extern KESTRO_API KestroSurface* gIconBack;        ///< "skin/icon-back.png"
extern KESTRO_API KestroSurface* gIconMenu;        ///< "skin/tips-MENU2.png"
extern KESTRO_API KestroSurface* gIconA;           ///< "skin/tips-A.png"
extern KESTRO_API KestroSurface* gIconB;           ///< "skin/tips-B.png"
extern KESTRO_API KestroSurface* gBackgroundFloat; ///< "skin/float-win-mask.png"

/// Sets the colours, opens the fonts and loads the pictures of the current theme (gThemePath). Call it once
/// the screen is open; a skin that is already there is released first. Starts SDL_ttf if the host has not.
/// Returns 0. Main thread, like everything here.
KESTRO_API int init_shared_skin();

/// Closes the fonts and deletes the pictures, and forgets the rendered texts, which belong to those fonts.
/// Harmless without a skin. Returns 0.
KESTRO_API int uninit_shared_skin();

/// Reads the theme's folder from the settings file "/mnt/UDISK/system.json". `*theme` receives a new copy,
/// which the caller frees, or null when the file names none or one that does not exist; it stays as it is
/// when the file cannot be read or parsed. The settings' journal, where it is on (setSettingsJournal), stands
/// in for such a file. `theme` may be null. Returns 0.
KESTRO_API int loadThemeInfo(char** theme);
