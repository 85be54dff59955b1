// Marks what the configuration model's library shows.
#ifndef ZELDEBUGDIALOG_CONFIGURATIONMODEL_EXPORT_H
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_EXPORT_H

#if defined(__GNUC__)
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_API                                  \
  __attribute__((visibility("default")))
#else
#define ZELDEBUGDIALOG_CONFIGURATIONMODEL_API
#endif

#endif
