#include "workbench/paint_surface.h"

#include "workbench/control.h"
#include "workbench/principal.h"
#include "workbench/principal_viewer.h"

namespace brindlemoor {

namespace {

/// The control's size for a surface of so many pixels: the frame stands around it.
int TwipsAround(int pixels) {
    return (pixels + 2 * kPictureFrame) * kTwipsPerPixel;
}

}  // namespace

PaintSurface OpenPaintSurface(int width, int height) {
    constexpr int kRedraw = 0;
    Control& picture = PrincipalControl("Archivo");
    const int oldWidth = picture.Width;
    const int oldHeight = picture.Height;
    picture.Visible = true;
    SetSize(picture, TwipsAround(width), TwipsAround(height));
    ViewFile(PrincipalViewer, kRedraw);
    return {&PrincipalViewer.Surface, [=] {
                Control& control = PrincipalControl("Archivo");
                const bool sameWidth = control.Width == TwipsAround(width);
                const bool sameHeight = control.Height == TwipsAround(height);
                SetSize(control, sameWidth ? oldWidth : control.Width,
                        sameHeight ? oldHeight : control.Height);
            }};
}

}  // namespace brindlemoor
