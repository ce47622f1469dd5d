# Who makes this build, and where the product's pages are. A packager sets these with -D; the defaults stand
# under a domain that is reserved for examples.
set(VANOKA_COMPANY_NAME "The Vanoka Project" CACHE STRING "The maker's name")
set(VANOKA_COMPANY_WEBSITE "https://maker.vanoka.example/" CACHE STRING "The maker's web site")
set(VANOKA_WEBSITE_HOME "https://vanoka.example" CACHE STRING "The product's home page")
set(VANOKA_WEBSITE_TERMS "https://vanoka.example/terms" CACHE STRING "The product's terms of use")
set(VANOKA_WEBSITE_PRIVACY_POLICY "https://vanoka.example/privacy" CACHE STRING
    "The product's privacy policy")
set(VANOKA_APPLICATION_ID "example.vanoka" CACHE STRING "The reverse domain name that metadata begins with")
