/* Two windows, the first with two text fields and the second with one, that write their texts as one line to
 * standard output whenever one changes. With "password" the second field hides its text;
 * with "left" the first gives the focus to the second as soon as it holds a space; with "alone" there is no
 * second window. */
#include <gtk/gtk.h>
#include <stdio.h>
#include <string.h>

static GtkWidget* fields[3];

static void report(GtkEditable* changed, gpointer data) {
    (void)changed;
    (void)data;
    for (int i = 0; i < 3; ++i)
        printf("%s%s", i ? "|" : "", fields[i] ? gtk_editable_get_text(GTK_EDITABLE(fields[i])) : "");
    printf("\n");
    fflush(stdout);
}

/* As a form does that moves on as soon as a field is full. */
static void leave(GtkEditable* changed, gpointer data) {
    (void)data;
    if (strchr(gtk_editable_get_text(changed), ' '))
        gtk_widget_grab_focus(fields[1]);
}

static GtkWidget* field(int index, gboolean is_password) {
    fields[index] = is_password ? gtk_password_entry_new() : gtk_entry_new();
    g_signal_connect(fields[index], "changed", G_CALLBACK(report), NULL);
    gtk_widget_set_vexpand(fields[index], TRUE);
    return fields[index];
}

static void window(const char* title, int first, int count, gboolean has_password) {
    GtkWidget* top = gtk_window_new();
    gtk_window_set_title(GTK_WINDOW(top), title);
    gtk_window_set_decorated(GTK_WINDOW(top), FALSE);
    gtk_window_set_default_size(GTK_WINDOW(top), 400, 100 * count);
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    gtk_box_set_homogeneous(GTK_BOX(box), TRUE);
    gtk_window_set_child(GTK_WINDOW(top), box);
    for (int i = first; i < first + count; ++i)
        gtk_box_append(GTK_BOX(box), field(i, has_password && i == 1));
    gtk_window_present(GTK_WINDOW(top));
}

int main(int count, char** arguments) {
    gtk_init();
    window("vanoka-one", 0, 2, count > 1 && strcmp(arguments[1], "password") == 0);
    if (count < 2 || strcmp(arguments[1], "alone") != 0)
        window("vanoka-two", 2, 1, FALSE);
    if (count > 1 && strcmp(arguments[1], "left") == 0)
        g_signal_connect(fields[0], "changed", G_CALLBACK(leave), NULL);
    report(NULL, NULL);
    while (g_list_model_get_n_items(gtk_window_get_toplevels()) > 0)
        g_main_context_iteration(NULL, TRUE);
    return 0;
}
