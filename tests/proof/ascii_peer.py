"""Every operation of the command line against a Modbus ASCII slave that shares no code with it.

ascii_peer.py ZELORGAS_CLI: plays the slave on a pty, gives the echo that the line would give, compares
each request byte for byte with the frame worked out here, and what the program printed with what
was answered.
"""

import json
import os
import select
import subprocess
import sys
import time
import tty

SLAVE = 11
LONGEST = 30  # seconds of one command
WORDS = {256 + k: (k * 40503 + 77) & 0xFFFF for k in range(583)}
BITS = {k: (k * k // 3) & 1 for k in range(400)}
LIVE = {k: (k * 257 + 5) & 0xFFFF for k in range(200)}
QUEUE = [0, 1, 0xFFFF, 0x3A0D, 12345]
OBJECTS = ["Maker", "", 'A name with : and "quotes"']


def frame(unit):
    lrc = -sum(unit) & 0xFF
    return b":" + (bytes(unit) + bytes([lrc])).hex().upper().encode() + b"\r\n"


def word(value):
    return bytes([value >> 8, value & 0xFF])


def packed(bits):
    out = bytearray((len(bits) + 7) // 8)
    for i, bit in enumerate(bits):
        out[i // 8] |= bit << (i % 8)
    return bytes(out)


def read(form, function, start, count, values):
    data = packed(values) if function <= 2 else b"".join(map(word, values))
    return (
        [form, str(start), str(count)],
        bytes([function]) + word(start) + word(count),
        bytes([function, len(data) & 0xFF]) + data,
        {"values": values},
    )


def cases():
    """(arguments, request's data, answer's data, printed JSON; a text instead for a refusal)"""
    for start, count in ((0, 1), (3, 8), (16, 35), (1, 255)):
        bits = [BITS[k] for k in range(start, start + count)]
        yield read("coils", 1, start, count, bits)
        yield read("inputs", 2, start, count, bits)
    for start, count in ((256, 1), (300, 32), (714, 125)):
        yield read("holding", 3, start, count, [WORDS[k] for k in range(start, start + count)])
    for start, count in ((0, 2), (71, 6), (10, 125)):
        yield read("input", 4, start, count, [LIVE[k] for k in range(start, start + count)])
    for state, value in (("on", 0xFF00), ("off", 0)):
        data = bytes([5]) + word(34) + word(value)
        yield ["write-coil", "34", state], data, data, {"values": [int(state == "on")]}
    for address, value in ((0, 0), (374, 125), (65535, 65535)):
        data = bytes([6]) + word(address) + word(value)
        yield ["write-register", str(address), str(value)], data, data, {"values": [value]}
    for count in (1, 2, 32, 123):
        values = [(k * 31 + 9) & 0xFFFF for k in range(count)]
        head = bytes([16]) + word(256) + word(count)
        data = head + bytes([2 * count]) + b"".join(map(word, values))
        yield ["write-registers", "256", *map(str, values)], data, head, {"values": values}
    for queue in (QUEUE, [], list(range(31))):
        body = word(len(queue)) + b"".join(map(word, queue))
        answer = bytes([24]) + word(len(body)) + body
        yield ["fifo", "7"], bytes([24]) + word(7), answer, {"values": queue}
    objects = b"".join(bytes([i, len(t)]) + t.encode() for i, t in enumerate(OBJECTS))
    for more, following in ((0, 0), (0xFF, 3)):
        head = bytes([43, 14, 1, 1, more, following, len(OBJECTS)])
        printed = {"values": OBJECTS, "more_follows": more != 0, "next_object": following}
        yield ["identify", "1", "0"], bytes([43, 14, 1, 0]), head + objects, printed
    for code in (1, 2, 3, 4, 6):
        request = bytes([3]) + word(1) + word(1)
        yield ["holding", "1", "1"], request, bytes([0x83, code]), str(code)


def serve(master, process, answer):
    """Echoes and answers the requests of `process` until it ends; gives them."""
    requests = []
    begun = b""
    end = time.monotonic() + LONGEST
    while process.poll() is None:
        if time.monotonic() > end:
            process.kill()
        ready, _, _ = select.select([master], [], [], 0.01)
        if not ready:
            continue
        got = os.read(master, 1024)
        os.write(master, got)
        begun += got
        if begun.endswith(b"\n"):
            os.write(master, answer)
            requests.append(begun)
            begun = b""
    return requests


def main(program):
    master, slave = os.openpty()
    tty.setraw(slave)
    port = os.ttyname(slave)
    failures = 0
    count = 0
    for arguments, request, answer, expected in cases():
        count += 1
        command = [program, "--port", port, "--json", "modbus", *arguments]
        with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
            got = serve(master, process, frame(bytes([SLAVE]) + answer))
            out, err = process.communicate(timeout=20)
        faults = []
        # What is refused is asked three times.
        wanted = [frame(bytes([SLAVE]) + request)] * (3 if isinstance(expected, str) else 1)
        if got != wanted:
            faults.append(f"sent {got!r}, not {wanted!r}")
        if isinstance(expected, str):
            if process.returncode != 1 or not err.decode().rstrip().endswith(expected):
                faults.append(f"exit {process.returncode}, {err!r}")
        elif process.returncode != 0 or json.loads(out) != expected:
            faults.append(f"exit {process.returncode}, {out!r} {err!r}, not {expected}")
        for fault in faults:
            print(f"{' '.join(arguments)}: {fault}")
        failures += bool(faults)
    print(f"{count} exchanges, {failures} wrong")
    return 1 if failures or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
