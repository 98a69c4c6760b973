// The output end of the audio device: what a backend does with samples.
//
// The command model (PlaybackDevice) decides what plays and when it is over;
// a sink only sounds a range of a clip and says how much of it has been
// heard. The silent sink counts time on a clock; the Qt sink feeds the sound
// card and counts what the card has played.
#pragma once

#include <string>

#include "platform/wavefile.h"

namespace platform {

class AudioSink {
 public:
  virtual ~AudioSink() = default;

  // Starts sounding clip from fromMs to toMs (0 <= fromMs <= toMs <= the
  // clip's length). When already sounding, jumps there without a gap. The
  // clip stays alive and unchanged until stop(). Returns false, with
  // failure() set, when the output refuses.
  virtual bool start(const WaveClip& clip, long fromMs, long toMs) = 0;
  // Sounds the whole of clip straight after the range now sounding, with no
  // gap between them: the output stays open across the join. The clip
  // stays alive and unchanged until stop(), or until it has begun to sound
  // and another start() or queue() follows. False (nothing queued) when
  // the output cannot take it, as for another sample format.
  virtual bool queue(const WaveClip& clip) = 0;
  // Once finished() has turned true: when a queued clip has taken over,
  // makes it the range that sounds (heardMs() counts from its first frame)
  // and returns true; false when nothing was queued.
  virtual bool carryOn() = 0;
  // Silences the output (a short fade, never a cut that clicks) and drops
  // whatever it still held, queued clip included; heardMs() is no longer
  // meaningful.
  virtual void stop() = 0;
  // Milliseconds of the range the listener has heard since the last start.
  virtual long heardMs() const = 0;
  // About how long until finished() turns true; the device looks again no
  // later than that, so that the end is not missed by a whole status tick.
  virtual long remainingMs() const = 0;
  // Looks at the output: true once the whole range has been heard, or the
  // output has made no progress for so long that it is taken as lost.
  // Called once per status tick.
  virtual bool finished() = 0;
  // Why the last start() failed.
  virtual std::string failure() const = 0;
};

}  // namespace platform
