// Marks what the project file's library shows.
#ifndef ZELDEBUGDIALOG_PROJECTFILE_EXPORT_H
#define ZELDEBUGDIALOG_PROJECTFILE_EXPORT_H

#if defined(__GNUC__)
#define ZELDEBUGDIALOG_PROJECTFILE_API __attribute__((visibility("default")))
#else
#define ZELDEBUGDIALOG_PROJECTFILE_API
#endif

#endif
