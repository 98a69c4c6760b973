#!/usr/bin/env python3
"""Measures a recording of Nadavik playing against the log of its marks.

    scripts/with-audio-server.sh --record out.wav \\
        build/release/tools/drivers/nadavik_play_scenario marks.log
    scripts/measure-playback.py out.wav marks.log

The log (written by nadavik_play_scenario) gives, in wall-clock seconds, each
click on an item ("play"), each Stop, the end of each run, each mark of a
note, and for each phrase a copy of its wave file with its notes' starts.
The recording's FILE.times (written by with-audio-server.sh) says when the
recording stopped, which places every sample on the same clock.

Each phrase file is found in the recording sample for sample (the null sink
passes our samples through unchanged), so that the recording itself says
where every phrase, and so every note, began to sound. Reported:
  * joins: the time between one phrase's last sample and the next phrase's
    first, within a run (0 ms: the files follow sample for sample), and
    silences (1 ms frames below -60 dBFS) inside each run;
  * drone: at each join, the largest step between neighbouring samples
    within 2 ms of it against the largest in the 50 ms before, and the low
    band's level (below ~150 Hz, the drone's strings) in the 20 ms after it
    against the 20 ms before: a drone that breaks or restarts its cycle at
    the join jumps or dips there;
  * Stop: how long sound lasts after each Stop (until below -50 dBFS), and
    whether anything sounds between it and the next item's first note;
  * marks: each note's mark against its onset in the recording.
Only the standard library is used.
"""
import argparse
import array
import math
import os
import sys
import wave

RATE = 44100


def read_wave(path):
    with wave.open(path, "rb") as w:
        if w.getsampwidth() != 2 or w.getnchannels() != 1:
            sys.exit(f"{path}: 16-bit mono expected")
        data = array.array("h")
        data.frombytes(w.readframes(w.getnframes()))
        return data


def parse_log(path):
    events = []
    with open(path) as f:
        for line in f:
            parts = line.split()
            if len(parts) >= 2:
                events.append((parts[0], float(parts[1]), parts[2:]))
    return events


def recording_start(recording_path, samples):
    times = recording_path + ".times"
    with open(times) as f:
        stopped = float(f.read().split()[1])
    return stopped - len(samples) / RATE


def frame_levels(x, frame=44):
    """dBFS of each 1 ms frame."""
    levels = []
    for i in range(0, len(x) - frame, frame):
        s = 0
        for v in x[i:i + frame]:
            s += v * v
        rms = math.sqrt(s / frame) / 32768.0
        levels.append(20 * math.log10(rms) if rms > 0 else -120.0)
    return levels


def find_phrase(rec, rec_bytes, clip, near, window):
    """Sample of rec where clip begins, searched near `near` (+-window)."""
    for offset_ms in (200, 400, 700, 1000, 1500):
        at = offset_ms * RATE // 1000
        if at + 128 > len(clip):
            break
        snippet = clip[at:at + 128].tobytes()
        lo = max(0, near + at - window) * 2
        hi = min(len(rec), near + at + window + 128) * 2
        found = rec_bytes.find(snippet, lo, hi)
        while found >= 0 and found % 2:
            found = rec_bytes.find(snippet, found + 1, hi)
        if found >= 0:
            return found // 2 - at
    return None


def low_band(x, lo, hi, cutoff=150.0):
    a = math.exp(-2 * math.pi * cutoff / RATE)
    y1 = y2 = 0.0
    out = []
    for v in x[max(0, lo):hi]:
        y1 = (1 - a) * v + a * y1
        y2 = (1 - a) * y1 + a * y2
        out.append(y2)
    return out


def drone_at_join(rec, at):
    """(step at the join / largest step before it, low-band level change dB)."""
    ms = RATE // 1000
    if at - 200 * ms < 0 or at + 20 * ms > len(rec):
        return None
    steps = [abs(rec[i] - rec[i - 1]) for i in range(at - 50 * ms, at - 2 * ms)]
    join = max(abs(rec[i] - rec[i - 1]) for i in range(at - 2 * ms, at + 2 * ms))
    band = low_band(rec, at - 200 * ms, at + 20 * ms)
    before = math.sqrt(sum(v * v for v in band[-40 * ms:-20 * ms]) / (20 * ms))
    after = math.sqrt(sum(v * v for v in band[-20 * ms:]) / (20 * ms))
    change = 20 * math.log10(after / before) if before > 0 and after > 0 else -120.0
    return join / max(1, max(steps)), change


def main():
    ap = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    ap.add_argument("recording")
    ap.add_argument("log")
    ap.add_argument("--tolerance-ms", type=float, default=20.0, help="allowed mark error")
    args = ap.parse_args()

    rec = read_wave(args.recording)
    rec_bytes = rec.tobytes()
    t0 = recording_start(args.recording, rec)
    levels = frame_levels(rec)
    events = parse_log(args.log)

    def sample_of(t):
        return int(round((t - t0) * RATE))

    # Runs: from each play to its end or stop; phrases within them.
    runs = []
    for kind, t, rest in events:
        if kind == "play":
            runs.append({"item": " ".join(rest), "start": t, "end": None, "stopped": False,
                         "phrases": [], "marks": []})
        elif kind in ("end", "stop") and runs and runs[-1]["end"] is None:
            runs[-1]["end"] = t
            runs[-1]["stopped"] = kind == "stop"
        elif kind == "mark" and runs:
            runs[-1]["marks"].append((t, int(rest[0]), int(rest[1]), rest[2]))
        elif kind == "phrase" and runs:
            runs[-1]["phrases"].append({"file": rest[0], "starts": [int(v) for v in rest[1:]],
                                        "marked": runs[-1]["marks"][-1][0]})

    ok = True
    worst_join = 0.0
    worst_silence = [0]
    worst_mark = 0.0
    drone_scores = []
    for run in runs:
        print(f"== {run['item']}" + (" (stopped)" if run["stopped"] else ""))
        previous_end = None
        sound_end = None
        onsets = []  # (note onset time, phrase index, note number)
        for index, phrase in enumerate(run["phrases"]):
            clip = read_wave(phrase["file"])
            near = sample_of(phrase["marked"])
            start = find_phrase(rec, rec_bytes, clip, near, RATE)
            if start is None:
                print(f"  phrase {index + 1}: not found in the recording")
                ok = False
                previous_end = None
                continue
            if previous_end is not None:
                join_ms = (start - previous_end) * 1000.0 / RATE
                worst_join = max(worst_join, abs(join_ms))
                drone = drone_at_join(rec, start)
                text = ""
                if drone:
                    drone_scores.append(drone)
                    text = f", step {drone[0]:.2f} of the largest before, low band {drone[1]:+.1f} dB"
                print(f"  join {index}->{index + 1}: {join_ms:+.1f} ms{text}")
            previous_end = start + len(clip)
            sound_end = previous_end
            for k, ms in enumerate(phrase["starts"]):
                onsets.append((t0 + (start + ms * RATE / 1000.0) / RATE, index, k + 1))
        # Silences inside the run, between its first and last phrase's sound.
        if run["phrases"] and onsets:
            first = max(0, sample_of(onsets[0][0]) // 44)
            stopped_at = sample_of(run["end"]) if run["end"] else len(rec)
            last = min(len(levels), min(stopped_at, sound_end or stopped_at) // 44)
            longest, current = 0, 0
            for level in levels[first:last]:
                current = current + 1 if level < -60 else 0
                longest = max(longest, current)
            print(f"  longest silence inside the run: {longest} ms")
            worst_silence[0] = max(worst_silence[0], longest)
        # Marks against onsets, phrase by phrase.
        phrase_of_mark = -1
        errors = []
        for t, buffer, note, token in run["marks"]:
            if note == 1:
                phrase_of_mark += 1
            match = [o for o in onsets if o[1] == phrase_of_mark and o[2] == note]
            if not match:
                continue
            errors.append((t - match[0][0]) * 1000.0)
        if errors:
            big = [e for e in errors if abs(e) > args.tolerance_ms]
            worst = max(errors, key=abs)
            worst_mark = max(worst_mark, abs(worst))
            print(f"  marks: {len(errors)} notes, error (mark - onset) mean {sum(errors) / len(errors):+.1f} ms, "
                  f"first {errors[0]:+.1f} ms, worst {worst:+.1f} ms, {len(big)} beyond "
                  f"{args.tolerance_ms:.0f} ms")
            if big:
                ok = False
        if run["stopped"]:
            stop = sample_of(run["end"]) // 44
            following = [r for r in runs if r["start"] > run["end"]]
            limit = sample_of(following[0]["start"]) // 44 if following else len(levels)
            last_sound = stop
            for i in range(stop, min(limit, len(levels))):
                if levels[i] > -50:
                    last_sound = i
            print(f"  sound after Stop: {last_sound - stop} ms")
            if following and following[0]["phrases"]:
                nxt = following[0]
                clip = read_wave(nxt["phrases"][0]["file"])
                begin = find_phrase(rec, rec_bytes, clip, sample_of(nxt["phrases"][0]["marked"]), RATE)
                if begin is not None:
                    lo = sample_of(nxt["start"]) // 44
                    hi = begin // 44
                    loud = [lv for lv in levels[lo:hi] if lv > -50]
                    print(f"  before the next item's first note: {len(loud)} ms of sound "
                          f"in the {hi - lo} ms after its click")
                    if loud:
                        ok = False
    print("== summary")
    print(f"largest join between phrases: {worst_join:.1f} ms; longest silence in a run: "
          f"{worst_silence[0]} ms")
    if drone_scores:
        print(f"at the joins: largest step {max(d[0] for d in drone_scores):.2f} of the largest "
              f"before it, low band change {min(d[1] for d in drone_scores):+.1f} to "
              f"{max(d[1] for d in drone_scores):+.1f} dB")
    print(f"largest mark error: {worst_mark:.1f} ms")
    return 0 if ok and worst_join <= 5.0 else 1


if __name__ == "__main__":
    sys.exit(main())
