#!/usr/bin/env python3
"""Checks the pitches of workbench patterns in a recording of what was heard.

    scripts/with-audio-server.sh --record out.wav build/release/tools/drivers/nadavik_pattern_run notes.log
    scripts/check-pattern-pitches.py out.wav notes.log

notes.log (tools/drivers/pattern_run.cpp) gives, per pattern, the wall-clock
time its file started playing and each note's start, length and absolute
note number; out.wav.times the wall-clock time the recording stopped. For
every note the script estimates the pitch on its own, from 40 % to 90 % of
the note's length (the sound server's output lags the device's start by
0.1 to 0.2 s, so the note's first part would catch the note before): the
spectrum at candidate fundamentals 80-1000 Hz (harmonics 1 to 3, Goertzel),
less each candidate's median over the pattern's notes, which takes out the
drone that sounds under every note; a candidate an octave or a twelfth
below the best that scores nearly as well is taken instead. The pitch found for each note, in
semitones above that of the pattern's first note, must equal the expected
interval (from the note numbers) to within half a semitone, or within
an octave's error (reported apart). Exits 1 when a note is wrong.
"""
import math
import struct
import sys
import wave

RATE_DIVISOR = 4  # 44.1 kHz to 11.025 kHz


def read_recording(path):
    with wave.open(path, "rb") as w:
        rate, frames = w.getframerate(), w.readframes(w.getnframes())
    samples = struct.unpack("<%dh" % (len(frames) // 2), frames)
    low = [sum(samples[i:i + RATE_DIVISOR]) / RATE_DIVISOR
           for i in range(0, len(samples) - RATE_DIVISOR, RATE_DIVISOR)]
    return rate, len(samples), low


def power(window, freq, rate):
    coeff = 2 * math.cos(2 * math.pi * freq / rate)
    s1 = s2 = 0.0
    for x in window:
        s1, s2 = x + coeff * s1 - s2, s1
    return s1 * s1 + s2 * s2 - coeff * s1 * s2


def candidates(low, high, cents):
    f, out = low, []
    while f <= high:
        out.append(f)
        f *= 2 ** (cents / 1200)
    return out


def spectrum(window, freqs, rate):
    return [sum(math.log(power(window, h * f, rate) + 1.0) for h in (1, 2, 3)) for f in freqs]


def parse_log(path):
    patterns = []
    for line in open(path):
        word = line.split()
        if word[0] == "pattern":
            patterns.append({"name": word[1], "start": float(word[2]), "notes": []})
        elif word[0] == "note":
            patterns[-1]["notes"].append((int(word[1]), int(word[2]), int(word[3]), word[4]))
    return patterns


def main():
    rec_path, log_path = sys.argv[1], sys.argv[2]
    stop = float(open(rec_path + ".times").read().split()[-1])
    rate, count, low = read_recording(rec_path)
    low_rate = rate / RATE_DIVISOR
    freqs = candidates(80.0, 1000.0, 20)
    wrong = octave_off = total = 0
    for pattern in parse_log(log_path):
        spectra = []
        for start_ms, length_ms, _, _ in pattern["notes"]:
            t = pattern["start"] + (start_ms + 0.4 * length_ms) / 1000
            first = int((count - (stop - t) * rate) / RATE_DIVISOR)
            spectra.append(spectrum(low[first:first + int(0.5 * length_ms / 1000 * low_rate)], freqs, low_rate))
        medians = [sorted(s[i] for s in spectra)[len(spectra) // 2] for i in range(len(freqs))]
        found = []
        for s in spectra:
            residue = [v - m for v, m in zip(s, medians)]
            best = max(range(len(freqs)), key=residue.__getitem__)
            # A reed's strong upper partials can outscore its fundamental:
            # a candidate an octave or a twelfth below that scores nearly as
            # well is the note.
            for divisor in (3, 2):
                below = min(range(len(freqs)), key=lambda i: abs(freqs[i] - freqs[best] / divisor))
                if abs(freqs[below] * divisor / freqs[best] - 1) < 0.02 and residue[below] >= 0.6 * residue[best]:
                    best = below
                    break
            found.append(freqs[best])
        base_f, base_n = found[0], pattern["notes"][0][2]
        print("%s: %d notes, first note %.1f Hz" % (pattern["name"], len(found), base_f))
        for (start_ms, _, number, name), f in zip(pattern["notes"], found):
            total += 1
            heard = 12 * math.log2(f / base_f)
            expected = number - base_n
            miss = heard - expected
            octave = round(miss / 12) * 12
            ok = abs(miss) <= 0.5
            if not ok and octave != 0 and abs(miss - octave) <= 0.5:
                octave_off += 1
                ok = True
            if not ok:
                wrong += 1
            print("  %6d ms %-4s expected %+3d heard %+6.2f semitones %7.1f Hz %s"
                  % (start_ms, name, expected, heard, f, "" if ok else "WRONG"))
    print("pattern pitches: %d notes, %d wrong, %d right but an octave off" % (total, wrong, octave_off))
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
