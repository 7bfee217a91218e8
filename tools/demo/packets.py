# SPDX-License-Identifier: GPL-3.0-or-later
"""Packet information fields from plain values. Public source: the APRS Protocol Reference 1.0.1.

Degrees are north and east positive, speeds in knots, courses in degrees. Everything is bytes in the end: a text is
written as UTF-8.
"""
import math


def _minutes(degrees, width):
    hundredths = round(abs(degrees) * 6000)
    whole, rest = divmod(hundredths, 6000)
    return f"{whole:0{width}d}{rest // 100:02d}.{rest % 100:02d}"


def latitude(degrees):
    return _minutes(degrees, 2) + ("N" if degrees >= 0 else "S")


def longitude(degrees):
    return _minutes(degrees, 3) + ("E" if degrees >= 0 else "W")


def position(lat, lon, symbol, comment="", kind="!", stamp=""):
    """A plain report; the symbol is table and code, as "/>"."""
    return f"{kind}{stamp}{latitude(lat)}{symbol[0]}{longitude(lon)}{symbol[1]}{comment}"


def course_speed(course, speed):
    return f"{round(course) % 360 or 360:03d}/{round(speed):03d}"


def weather(lat, lon, wind, direction, gust, fahrenheit, rain, humidity, millibars, kind="!", stamp=""):
    data = (f"{round(direction) % 360:03d}/{round(wind):03d}g{round(gust):03d}t{round(fahrenheit):03d}"
            f"r{rain:03d}p{rain * 2:03d}P{rain * 3:03d}h{humidity % 100:02d}b{round(millibars * 10):05d}")
    return position(lat, lon, "/_", data, kind, stamp)


def object_report(name, lat, lon, symbol, comment, alive=True, stamp="111111z"):
    return f";{name:<9}{'*' if alive else '_'}" + position(lat, lon, symbol, comment, "", stamp)


def message(to, text, number=""):
    return f":{to:<9}:{text}" + (f"{{{number}" if number else "")


def mic_e(lat, lon, symbol, course, speed, status, comment):
    """(destination, information field); `status` 0 to 7 as three bits, 7 is off duty. Control characters are avoided:
    hundredths and courses are moved by a step where they would need one."""
    digits = latitude(lat).replace(".", "")[:6]
    hundredths = round(abs(lon) * 6000)
    degrees, rest = divmod(hundredths, 6000)
    minutes, hundredths = divmod(rest, 100)
    upper = [status & 4, status & 2, status & 1, lat >= 0, degrees < 10 or degrees >= 100, lon < 0]
    destination = "".join(chr(ord("P") + int(d)) if up else d for d, up in zip(digits, upper))
    if degrees < 10:
        first = min(degrees, 8) + 118
    elif degrees < 100:
        first = degrees + 28
    else:
        first = degrees + 8 if degrees < 110 else degrees - 72
    tens, ones = divmod(round(speed), 10)
    hundreds, rest = divmod(round(course) % 360, 100)
    letters = [first, minutes + (88 if minutes < 10 else 28), min(max(hundredths, 4), 98) + 28,
               tens + (108 if tens < 20 else 28), ones * 10 + hundreds + 32, max(rest, 4) + 28]
    return destination, "`" + "".join(map(chr, letters)) + symbol[1] + symbol[0] + comment


def _sentence(body):
    checksum = 0
    for character in body:
        checksum ^= ord(character)
    return f"${body}*{checksum:02X}"


def _nmea(degrees, width):
    whole = math.floor(abs(degrees))
    return f"{whole:0{width}d}{(abs(degrees) - whole) * 60:07.4f}"


def gprmc(lat, lon, course, speed, clock):
    return _sentence(f"GPRMC,{clock},A,{_nmea(lat, 2)},{'NS'[lat < 0]},{_nmea(lon, 3)},{'EW'[lon < 0]},"
                     f"{speed:05.1f},{course % 360:05.1f},080826,,")


def gpgga(lat, lon, clock):
    return _sentence(f"GPGGA,{clock},{_nmea(lat, 2)},{'NS'[lat < 0]},{_nmea(lon, 3)},{'EW'[lon < 0]},"
                     f"1,08,1.1,120.0,M,40.0,M,,")
