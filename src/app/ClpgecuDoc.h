// The document: the one link to the ECU, the ECU image that every page reads, and the flags by
// which the pages and the communication worker come to terms. The user-interface thread and the
// worker share it; every member says who guards it.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>

#include "app/CommStatus.h"
#include "app/EcuImage.h"
#include "app/Event.h"
#include "app/LiveRecord.h"
#include "link/ModbusSerialPort.h"
#include "platform/Clock.h"

namespace zelorgas {

class ClpgecuDoc {
 public:
  // `opener`, `clock` and `status` outlive the document.
  ClpgecuDoc(SerialOpener opener, Clock& clock, StatusSink& status);
  ClpgecuDoc(const ClpgecuDoc&) = delete;
  ClpgecuDoc& operator=(const ClpgecuDoc&) = delete;
  // Stops the worker.
  ~ClpgecuDoc();

  // ASCII framing, 19200 baud, 7 data bits, even parity, one stop bit, port 1.
  [[nodiscard]] ModbusSerialPort& Link() { return link_; }
  [[nodiscard]] Clock& DocumentClock() const { return clock_; }

  // Opens the link with its stored settings on a thread of its own, while the slice hook runs here;
  // false as ModbusSerialPort::Open says it.
  [[nodiscard]] bool OpenLink();

  // The image and its lock; the owner may lock again. Taken before the link's lock where both are
  // needed, and by the worker only to copy, never while it talks to the ECU.
  void ImageLock() { image_lock_.lock(); }
  void ImageUnlock() { image_lock_.unlock(); }
  [[nodiscard]] EcuImage& Image() { return image_; }
  // A copy of the image, taken under its lock.
  [[nodiscard]] EcuImage Snapshot();

  // Opens the port if it is not open (kPortBusy is posted and false returned when that fails), and
  // starts the worker, or lets the one that exists run on.
  bool StartWorker();
  // The first halves of the two, without the thread; what runs the worker's rounds itself calls
  // them.
  bool PrepareWorker();
  void TellWorkerToStop();
  // Tells the worker to stop, posts kNotConnected, and waits for its end; the slice hook runs
  // meanwhile. Nothing happens when there is no worker.
  void StopWorker();
  [[nodiscard]] bool HasWorker() const { return worker_.joinable(); }

  // Holds the worker after the exchange it is in, or lets it go on. LinkSession calls this; nothing
  // else does.
  void PauseWorker(bool pause);
  // True while the worker will not start an exchange: it is held, has ended, or never ran.
  [[nodiscard]] bool WorkerIdle() const { return paused_ || finished_; }
  // True once the worker has found another ECU on the line than was connected to, and has said so;
  // until the next worker.
  [[nodiscard]] bool AnotherEcu() const { return another_ecu_; }

  // Makes the worker read everything once more, after a write-back that is due.
  void RequestRefresh() { refresh_.Set(); }
  // Who has written back what a restarted ECU had lost, or has failed to, says so.
  void EndWriteBack() { write_back_due_ = false; }
  // Set while the person has disconnected: the worker then reads only the live FIFO.
  [[nodiscard]] Event& HoldEvent() { return hold_; }

  // Which of the two routing maps a stored file carries, and into which one a loaded file's goes.
  // Used by the user-interface thread only, as all that stores and loads.
  void SelectRoutingMap(std::size_t map) { routing_map_ = map; }
  [[nodiscard]] std::size_t RoutingMap() const { return routing_map_; }

  // Polls the twelve extra channels too.
  void SetExtraChannels(bool on) { extra_channels_ = on; }
  void ClearRestartMarker() { restart_marker_ = false; }

  [[nodiscard]] LiveRecordQueue& LiveRecords() { return live_records_; }
  void Post(CommStatus status) { status_.Post(status); }

  // Runs on a waiting thread every 10 ms at the latest, in the link and here.
  void SetSliceHook(SerialDevice::SliceHook hook);
  // Sleeps in slices with the hook between them.
  void SleepSliced(Clock::Duration duration);

 private:
  friend class CommWorker;

  void RunSliceHook() const {
    if (slice_hook_) slice_hook_();
  }

  // Constant after the set-up.
  Clock& clock_;
  StatusSink& status_;
  SerialDevice::SliceHook slice_hook_;

  ModbusSerialPort link_;

  std::recursive_mutex image_lock_;
  EcuImage image_;  // guarded by image_lock_

  Event refresh_;
  Event hold_;
  std::atomic<bool> run_{false};          // written by the user interface
  std::atomic<bool> pause_{false};        // written by the user interface
  std::atomic<bool> paused_{false};       // written by the worker
  std::atomic<bool> finished_{true};      // written by the worker, and when one is started
  std::atomic<bool> another_ecu_{false};  // likewise
  std::atomic<bool> extra_channels_{false};
  std::atomic<bool> restart_marker_{false};
  std::atomic<bool> write_back_due_{false};  // from kEcuRestarted to EndWriteBack

  LiveRecordQueue live_records_;
  // Used by the user-interface thread only.
  std::size_t routing_map_ = 0;
  std::thread worker_;
};

}  // namespace zelorgas
