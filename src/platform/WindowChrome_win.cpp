#include "platform/WindowChrome.h"

#include <QWindow>

#include <windows.h>

#include <dwmapi.h>

namespace Zorvane::WindowChrome {

namespace {
HWND handleOf(QWindow* window)
{
    return reinterpret_cast<HWND>(window->winId());
}

// The icon resource of the program (its resource script).
constexpr WORD IconResource = 101;

void sendIcon(HWND window, UINT dpi, int widthMetric, int heightMetric, WPARAM kind)
{
    const int width = ::GetSystemMetricsForDpi(widthMetric, dpi);
    const int height = ::GetSystemMetricsForDpi(heightMetric, dpi);
    // Neither result is tested: a missing icon leaves the system's default.
    HANDLE icon = ::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IconResource),
                               IMAGE_ICON, width, height, 0);
    ::SendMessageW(window, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
}
} // namespace

QImage ProgramIcon(const QSize& size)
{
    HANDLE icon = ::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IconResource),
                               IMAGE_ICON, size.width(), size.height(), 0);
    if (icon == nullptr) {
        return {};
    }
    QImage image = QImage::fromHICON(static_cast<HICON>(icon));
    ::DestroyIcon(static_cast<HICON>(icon));
    return image;
}

int DpiForWindow(QWindow* window)
{
    return static_cast<int>(::GetDpiForWindow(handleOf(window)));
}

void InstallIcons(QWindow* window)
{
    const HWND handle = handleOf(window);
    const UINT dpi = ::GetDpiForWindow(handle);
    sendIcon(handle, dpi, SM_CXSMICON, SM_CYSMICON, ICON_SMALL);
    sendIcon(handle, dpi, SM_CXICON, SM_CYICON, ICON_BIG);
}

bool TrySetSystemBackdrop(QWindow* window)
{
    // Windows 11 (22H2 on) takes the attribute; earlier systems refuse it.
    const DWORD mainWindow = 2; // DWMSBT_MAINWINDOW, the material that follows the theme
    return SUCCEEDED(::DwmSetWindowAttribute(handleOf(window), DWMWA_SYSTEMBACKDROP_TYPE,
                                             &mainWindow, sizeof(mainWindow)));
}

} // namespace Zorvane::WindowChrome
