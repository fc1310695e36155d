#include <string_view>

#include "updater/https_request_win32.h"
#include "updater/https_win32.h"

namespace ravelin {

namespace {

// A file that did not exist before and is deleted again unless it is kept.
class NewFile {
  public:
    NewFile(const std::wstring& path, SECURITY_ATTRIBUTES& security)
        : path_(path),
          file_(CreateFileW(path.c_str(), GENERIC_WRITE, 0, &security, CREATE_NEW,
                            FILE_ATTRIBUTE_NORMAL, nullptr)),
          exists_(static_cast<bool>(file_)) {}
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile() {
        file_.reset();
        if (exists_ && !kept_) DeleteFileW(path_.c_str());
    }

    explicit operator bool() const { return exists_; }
    bool write(std::string_view bytes) {
        DWORD written = 0;
        return WriteFile(file_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                         nullptr) &&
               written == bytes.size();
    }
    void keep() { kept_ = true; }

  private:
    std::wstring path_;
    FileHandle file_;
    bool exists_;
    bool kept_ = false;
};

bool transfer(HttpsRequest& request, NewFile& file, DownloadMeter& meter,
              const ProgressSink& sink) {
    if (!sink(0, meter.declared())) return false;
    for (;;) {
        // A connection that breaks off here is a short file, which the digest tells.
        const DWORD announced = request.available().value_or(0);
        if (announced == 0) break;
        const auto chunk = request.read(announced);
        if (!chunk) return false;
        if (chunk->empty()) break;
        meter.add(chunk->size());
        if (meter.isTooLarge()) return false;
        if (!file.write(*chunk)) return false;
        if (meter.isReportDue(GetTickCount64()) && !sink(meter.received(), meter.declared()))
            return false;
    }
    return true;
}

}  // namespace

bool DownloadToFile(const std::string& url, const std::wstring& path, SECURITY_ATTRIBUTES& security,
                    const ProgressSink& sink) {
    auto request = HttpsRequest::get(url);
    if (!request) return false;
    DownloadMeter meter(declaredLength(request->contentLength()));
    if (meter.isTooLarge()) return false;
    NewFile file(path, security);
    if (!file || !transfer(*request, file, meter, sink)) return false;
    // The end is reported whatever the sink says to it.
    sink(meter.received(), meter.finalTotal());
    file.keep();
    return true;
}

}  // namespace ravelin
