#ifdef _WIN32

#include <windows.h>

#include <cmath>
#include <cstring>

#include "charts/ui/NativeClipboard.h"

namespace charts {
namespace {

constexpr std::size_t kPlaceableHeader = 22;
constexpr std::size_t kBitmapFileHeader = 14;
constexpr double kHundredthsMmPerPixel = 2540.0 / 96;

// A copy that the clipboard may own.
HGLOBAL globalCopy(const void* data, std::size_t size) {
  HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  if (!memory) return nullptr;
  void* target = GlobalLock(memory);
  if (!target) {
    GlobalFree(memory);
    return nullptr;
  }
  std::memcpy(target, data, size);
  GlobalUnlock(memory);
  return memory;
}

bool putGlobal(UINT format, const void* data, std::size_t size) {
  HGLOBAL memory = globalCopy(data, size);
  if (!memory) return false;
  if (SetClipboardData(format, memory)) return true;
  GlobalFree(memory);
  return false;
}

bool putEnhanced(const NativePicture& picture) {
  HENHMETAFILE file = SetEnhMetaFileBits(static_cast<UINT>(picture.metafile.size()),
                                         reinterpret_cast<const BYTE*>(picture.metafile.data()));
  if (!file) return false;
  if (SetClipboardData(CF_ENHMETAFILE, file)) return true;
  DeleteEnhMetaFile(file);
  return false;
}

bool putMetafile(const NativePicture& picture) {
  const std::string_view records = picture.metafile.substr(kPlaceableHeader);
  HMETAFILE file = SetMetaFileBitsEx(static_cast<UINT>(records.size()),
                                     reinterpret_cast<const BYTE*>(records.data()));
  if (!file) return false;
  METAFILEPICT header{};
  header.mm = MM_ANISOTROPIC;
  header.xExt = static_cast<LONG>(std::lround(picture.width * kHundredthsMmPerPixel));
  header.yExt = static_cast<LONG>(std::lround(picture.height * kHundredthsMmPerPixel));
  header.hMF = file;
  if (putGlobal(CF_METAFILEPICT, &header, sizeof(header))) return true;
  DeleteMetaFile(file);
  return false;
}

// The clipboard, opened for a window of its own: emptied for none it may take nothing in.
class OpenedClipboard {
 public:
  OpenedClipboard()
      : owner_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                               nullptr)) {
    // Programs that watch the clipboard hold it for a moment.
    constexpr int kAttempts = 6;
    constexpr DWORD kPauseMilliseconds = 20;
    for (int attempt = 1; owner_ && !opened_ && attempt <= kAttempts; ++attempt) {
      opened_ = OpenClipboard(owner_) != FALSE;
      if (!opened_) Sleep(kPauseMilliseconds);
    }
  }
  ~OpenedClipboard() {
    if (opened_) CloseClipboard();
    if (owner_) DestroyWindow(owner_);
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  explicit operator bool() const { return opened_; }

 private:
  HWND owner_;
  bool opened_ = false;
};

}  // namespace

bool putOnNativeClipboard(const NativePicture& picture) {
  if (picture.metafile.size() <= kPlaceableHeader) return false;
  const OpenedClipboard clipboard;
  if (!clipboard) return false;
  EmptyClipboard();
  const bool put = picture.enhanced ? putEnhanced(picture) : putMetafile(picture);
  if (put && picture.bitmap.size() > kBitmapFileHeader)
    putGlobal(CF_DIB, picture.bitmap.data() + kBitmapFileHeader,
              picture.bitmap.size() - kBitmapFileHeader);
  return put;
}

}  // namespace charts

#endif
