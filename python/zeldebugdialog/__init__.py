"""Debug configurations of the processors of FPGA designs.

>>> from zeldebugdialog import Board
>>> with Board("board/board.xml") as board:
...     configuration = board.configuration("lumacore_0")
...     configuration["cable.cableType"] = "quorla_podusb"
...     print(configuration.command)
connect lc hdu -cable type quorla_podusb port USB21 frequency 6000000 -debugdevice cpunr 1
"""

from .board import Board
from .commands import (Completion, Word, check, complete, diff, explain,
                       settings, version)
from .configuration import Chain, Configuration, Group
from .errors import (LibraryNotFound, ProtocolError, Refused,
                     ZelDebugDialogError)
from .records import (Choice, Diagnostic, Difference, Effect, Loss, Processor,
                      Said, SaidCommand, Saved, Setting, SettingInfo,
                      Undebuggable, Written)
from .values import Device, Value

__all__ = [
    "Board", "Chain", "Choice", "Completion", "Configuration", "Device",
    "Diagnostic", "Difference", "Effect", "Group", "LibraryNotFound", "Loss",
    "Processor", "ProtocolError", "Refused", "Said", "SaidCommand",
    "Saved", "Setting", "SettingInfo", "Undebuggable", "Value", "Word",
    "Written", "ZelDebugDialogError", "check", "complete", "diff", "explain",
    "settings", "version",
]
