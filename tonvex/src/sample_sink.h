// Where rendered sound goes, block by block: 16-bit mono samples at 44100 Hz
// handed over in order. The wave file writer is one sink (wav_file.h); any
// other file writer plugs in by implementing FileSink, and the renderers
// (mix_render.h, the drone file) never see which one it is.
#pragma once

#include <cstdint>
#include <span>

namespace tonvex {

class SampleSink {
 public:
  virtual ~SampleSink() = default;
  // Appends samples after those written before; false when they could not
  // be taken (the caller stops and abandons the sink).
  virtual bool write(std::span<const int16_t> samples) = 0;
};

// A sink that ends in a file. Until finish() succeeds no valid-looking file
// is at the destination; a sink destroyed unfinished leaves none.
class FileSink : public SampleSink {
 public:
  // Completes the file (at least one sample must have been written). False
  // when it could not be completed; nothing is then left.
  virtual bool finish() = 0;
};

}  // namespace tonvex
