"""What a program may write, as its checker of types sees it."""

from zeldebugdialog import Board, Chain, Device, diff


def use(board: Board, devices: tuple[Device, ...]) -> Chain:
    configuration = board.configuration("lumacore_0")
    configuration.debugDevice = 3
    configuration["cable.frequency"] = "3 MHz"
    configuration.cable.cableType = "quorla_podusb"
    configuration.chain = []
    configuration.chain = devices
    configuration.chain += [{"partname": "pk9ab100"}]
    return configuration.chain


def devices_in(first: str, second: str) -> list[Device]:
    return [after for _, after in diff(first, second).values()
            if isinstance(after, dict)]
