#include "platform/StandardStreams.h"

namespace zelorgas {

// Handles of closed streams are not given out again here.
void KeepStandardStreams() {}

}  // namespace zelorgas
