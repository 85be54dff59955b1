// Marks what the design model's library exports; everything else in it is
// hidden.
#ifndef ZELDEBUGDIALOG_DESIGNMODEL_EXPORT_H
#define ZELDEBUGDIALOG_DESIGNMODEL_EXPORT_H

#if defined(__GNUC__)
#define ZELDEBUGDIALOG_DESIGNMODEL_API __attribute__((visibility("default")))
#else
#define ZELDEBUGDIALOG_DESIGNMODEL_API
#endif

#endif
