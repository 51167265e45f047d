#!/usr/bin/env python3
"""A small DNS server for the lookup tests and benchmarks, on 127.0.0.1:53.

Answers A queries after a set delay: h<N>.up.invalid gets 10.<N/65536>.<N/256%256>.<N%256>,
m<N>.up.invalid gets two addresses (10.200.x.y, then 10.201.x.y); every other name gets NXDOMAIN.
Names are matched without regard to case. Each query is logged as one line, "<name> <type>",
to the log file. Many queries wait out their delay at the same time, so the server answers a
burst of queries as fast as a real one would.

Usage: server.py DELAY_MS LOG_FILE READY_FILE  (READY_FILE is created once the port is bound)
"""
import heapq
import re
import select
import socket
import struct
import sys
import time

PATTERN = re.compile(rb"^([hm])(\d+)\.up\.invalid$", re.IGNORECASE)


def question(packet):
    """The query's name (bytes, dotted), type and the end offset of its question."""
    labels, at = [], 12
    while packet[at]:
        length = packet[at]
        labels.append(packet[at + 1:at + 1 + length])
        at += 1 + length
    qtype, _ = struct.unpack("!HH", packet[at + 1:at + 5])
    return b".".join(labels), qtype, at + 5


def addresses(name):
    match = PATTERN.match(name)
    if not match:
        return None
    n = int(match.group(2))
    tail = bytes([n >> 16 & 255, n >> 8 & 255, n & 255])
    if match.group(1).lower() == b"m":
        return [bytes([10, 200]) + tail[1:], bytes([10, 201]) + tail[1:]]
    return [bytes([10]) + tail]


def reply(packet):
    name, qtype, end = question(packet)
    found = addresses(name)
    answers = found if found is not None and qtype == 1 else []
    rcode = 3 if found is None else 0
    flags = 0x8000 | 0x0400 | (struct.unpack("!H", packet[2:4])[0] & 0x0100) | 0x0080 | rcode
    head = packet[:2] + struct.pack("!HHHHH", flags, 1, len(answers), 0, 0)
    body = b"".join(struct.pack("!HHHIH", 0xC00C, 1, 1, 60, 4) + a for a in answers)
    return name, qtype, head + packet[12:end] + body


def main():
    delay = float(sys.argv[1]) / 1000
    log = open(sys.argv[2], "a", buffering=1)
    sock = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    sock.bind(("127.0.0.1", 53))
    open(sys.argv[3], "w").close()
    pending = []  # (due time, sequence, reply, address)
    sequence = 0
    while True:
        wait = max(0.0, pending[0][0] - time.monotonic()) if pending else None
        readable, _, _ = select.select([sock], [], [], wait)
        if readable:
            packet, address = sock.recvfrom(4096)
            try:
                name, qtype, answer = reply(packet)
            except (IndexError, struct.error):
                continue
            log.write("%s %d\n" % (name.decode("ascii", "replace"), qtype))
            sequence += 1
            heapq.heappush(pending, (time.monotonic() + delay, sequence, answer, address))
        while pending and pending[0][0] <= time.monotonic():
            _, _, answer, address = heapq.heappop(pending)
            sock.sendto(answer, address)


if __name__ == "__main__":
    main()
