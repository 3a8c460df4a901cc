"""The payloads by type: functions over a source of elements and what is around the message."""

PAYLOADS = {}


def payload(number):
    def enter(function):
        PAYLOADS[number] = function
        return function

    return enter
