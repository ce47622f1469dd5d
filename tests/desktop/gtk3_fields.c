/* Two windows, the first with two text fields and the second with one, that write their texts as one line to
 * standard output whenever one changes. With "password" the second field hides its text;
 * with "left" the first gives the focus to the second as soon as it holds a space; with "alone" there is no
 * second window. */
#include <gtk/gtk.h>
#include <stdio.h>
#include <string.h>

static GtkWidget* fields[3];

/* As a form does that moves on as soon as a field is full. */
static void leave(GtkEditable* changed, gpointer data) {
    (void)data;
    if (strchr(gtk_entry_get_text(GTK_ENTRY(changed)), ' '))
        gtk_widget_grab_focus(fields[1]);
}

static void report(GtkEditable* changed, gpointer data) {
    (void)changed;
    (void)data;
    for (int i = 0; i < 3; ++i)
        printf("%s%s", i ? "|" : "", fields[i] ? gtk_entry_get_text(GTK_ENTRY(fields[i])) : "");
    printf("\n");
    fflush(stdout);
}

static void window(const char* title, int first, int count) {
    GtkWidget* top = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_title(GTK_WINDOW(top), title);
    gtk_window_set_default_size(GTK_WINDOW(top), 400, 100 * count);
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    gtk_box_set_homogeneous(GTK_BOX(box), TRUE);
    gtk_container_add(GTK_CONTAINER(top), box);
    for (int i = first; i < first + count; ++i) {
        fields[i] = gtk_entry_new();
        g_signal_connect(fields[i], "changed", G_CALLBACK(report), NULL);
        gtk_box_pack_start(GTK_BOX(box), fields[i], TRUE, TRUE, 0);
    }
    g_signal_connect(top, "destroy", G_CALLBACK(gtk_main_quit), NULL);
    gtk_widget_show_all(top);
}

int main(int count, char** arguments) {
    gtk_init(&count, &arguments);
    window("vanoka-one", 0, 2);
    if (count < 2 || strcmp(arguments[1], "alone") != 0)
        window("vanoka-two", 2, 1);
    if (count > 1 && strcmp(arguments[1], "password") == 0) {
        gtk_entry_set_visibility(GTK_ENTRY(fields[1]), FALSE);
        gtk_entry_set_input_purpose(GTK_ENTRY(fields[1]), GTK_INPUT_PURPOSE_PASSWORD);
    }
    if (count > 1 && strcmp(arguments[1], "left") == 0)
        g_signal_connect(fields[0], "changed", G_CALLBACK(leave), NULL);
    report(NULL, NULL);
    gtk_main();
    return 0;
}
