#include <stdio.h>
#include <string.h>
#include <vanoka.h>

int main(int count, char **arguments) {
    vanoka_answer *answer;
    vanoka_settings *settings;
    if (count != 2 || vanoka_answer_create(&answer) != VANOKA_OK || vanoka_settings_create(&settings) != VANOKA_OK)
        return 1;
    if (vanoka_settings_transliterate(settings, arguments[1], strlen(arguments[1]), answer) == VANOKA_OK)
        puts(vanoka_answer_items(answer)->text);
    vanoka_settings_release(settings);
    vanoka_answer_release(answer);
    return 0;
}
