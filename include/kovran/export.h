#ifndef KOVRAN_EXPORT_H
#define KOVRAN_EXPORT_H

// Marks what the shared object exports; everything else in it is hidden.
#define KOVRAN_API __attribute__((visibility("default")))

#endif  // KOVRAN_EXPORT_H
