// Marks what the shared library exports; everything else in it is hidden.
#ifndef ZELDEBUGDIALOG_EXPORT_H
#define ZELDEBUGDIALOG_EXPORT_H

#if defined(__GNUC__)
#define ZELDEBUGDIALOG_API __attribute__((visibility("default")))
#else
#define ZELDEBUGDIALOG_API
#endif

#endif
