// One main process per session: a second start brings the first one's window forward.
#pragma once

#include <memory>

namespace ravelin {

class SingleInstance {
  public:
    // Takes the instance's name for as long as this object lives.
    SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance();

    // Another main process had the name first.
    bool alreadyRunning() const;

  private:
    struct Lock;
    std::unique_ptr<Lock> lock_;
};

}  // namespace ravelin
