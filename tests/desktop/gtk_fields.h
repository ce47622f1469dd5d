/* What the programs with fields of GTK 3 and GTK 4 have in common. */
#ifndef VANOKA_GTK_FIELDS_H
#define VANOKA_GTK_FIELDS_H

#include <gtk/gtk.h>
#include <string.h>

static char* marked; /* the marked text; null before the first */

/* Writes the line. */
static void report(void);

static gboolean has_argument(int count, char** arguments, const char* wanted) {
    for (int i = 1; i < count; ++i)
        if (strcmp(arguments[i], wanted) == 0)
            return TRUE;
    return FALSE;
}

static void mark(GObject* field, char* text, gpointer data) {
    (void)field;
    (void)data;
    g_free(marked);
    marked = g_strdup(text);
    report();
}

/* Reports the marked text of a field, its caret and its focus, too. */
static void watch(gpointer field) {
    g_signal_connect(field, "preedit-changed", G_CALLBACK(mark), NULL);
    g_signal_connect(field, "notify::cursor-position", G_CALLBACK(report), NULL);
    g_signal_connect(field, "notify::selection-bound", G_CALLBACK(report), NULL);
    g_signal_connect(field, "notify::has-focus", G_CALLBACK(report), NULL);
}

#endif
