// The thread that keeps the ECU image and the live values current for as long as the person stays
// connected: one full read after the link comes up, then live data round after round. It shows
// nothing itself; everything it has to say goes out as CommStatus.
#pragma once

#include <cstddef>
#include <cstdint>

#include "app/ClpgecuDoc.h"

namespace zelorgas {

class CommWorker {
 public:
  explicit CommWorker(ClpgecuDoc& document) : document_(document) {}

  // The thread's body: rounds until the document says stop.
  void Run();

  // One turn of the loop, for tests that want to look in between. False when the worker has been
  // told to stop; it has then said so, pulsed coil 34 and finished.
  bool RunRound();

 private:
  void Finish();
  // Tries to open an unplugged port again. False while it is not back.
  bool ReopenLostPort();
  // False when the round ends here: an ECU too new for this program is not polled, nor another one
  // than was connected to.
  bool FullRead();
  // Block, status words and coils into the image. False when one of them failed, somebody wants the
  // link, or another ECU answers.
  bool ReadEverything();
  enum class Answer : std::uint8_t { kNone, kSame, kAnother };
  // Reads the status words, among them which ECU it is that answers now.
  Answer ReadStatus();
  void Poll();
  void PollFifo();
  void PollBlockA();
  bool PollBlockB();
  bool PollBits();
  void CountGoodPoll();
  void CountFailedPoll();
  void HandleRestartFlag();
  // Whether a refresh may read over the image now: not over what the ECU has lost in a restart and
  // is to get back.
  bool MayRefresh();
  [[nodiscard]] bool HeldOrPaused() const;

  ClpgecuDoc& document_;
  bool connected_ = false;
  std::uint16_t fifo_pointer_ = 0;
  unsigned failures_ = 0;
};

}  // namespace zelorgas
