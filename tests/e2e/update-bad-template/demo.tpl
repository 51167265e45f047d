Not a template
